#pragma once

#include <cstdint>
#include <memory>

#include "platform/ports/GoodsPicker.h"
#include "search/GoodSearchControls.h"
#include "services/SharedState.h"

namespace koru {

/// The goods picker GrnBPGoodPicker that the goods search hosts. In a suite without the picker nothing
/// happens.
class GoodsPicking {
 public:
  /// Both must outlive the object.
  GoodsPicking(GoodSearchControls& controls, SharedState& shared) : controls_(controls), shared_(shared) {}

  /// Makes the picker and tells it the connection and who works.
  void Host();
  /// Offers the goods of a store only.
  void SetInventory(std::int32_t id);
  /// Lets the person pick, keeps the list and shows what was picked: the good, or that there are several.
  void Pick();

 private:
  [[nodiscard]] GoodsPicker* Picker() const { return dynamic_cast<GoodsPicker*>(GrnBPGoodPicker_.get()); }

  GoodSearchControls& controls_;
  SharedState& shared_;
  std::unique_ptr<SiblingComponent> GrnBPGoodPicker_;
};

}  // namespace koru
