#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/ports/GoodsPicker.h"
#include "search/GoodSearchControls.h"
#include "search/PickedGoods.h"
#include "services/SharedState.h"

namespace koru {

/// The goods picker GrnBPGoodPicker that the goods search hosts. Without the picker in the suite, all
/// operations do nothing.
class GoodsPicking {
 public:
  /// Both must outlive the object.
  GoodsPicking(GoodSearchControls& controls, SharedState& shared) : controls_(controls), shared_(shared) {}

  /// Makes the picker and gives it the connection and the signed-in user.
  void Host();
  /// Makes the picker anew, so that it has nothing of what was picked before; it offers the same store.
  void StartAfresh();
  /// Offers the goods of a store only.
  void SetInventory(std::int32_t id);
  /// Lets the user pick, keeps the list and shows what was picked: the good, or that there are several. When
  /// nothing was picked, now or before, the fields keep what was typed.
  /// Where the user has left the store's goods for those of all stores, the search does so, too: a good that
  /// was never received here could not be added.
  void Pick();
  /// The goods of a list, with their names.
  [[nodiscard]] std::vector<PickedGoods::Good> GoodsIn(const std::string& list) const;

 private:
  [[nodiscard]] GoodsPicker* Picker() const { return dynamic_cast<GoodsPicker*>(GrnBPGoodPicker_.get()); }

  GoodSearchControls& controls_;
  SharedState& shared_;
  std::unique_ptr<SiblingComponent> GrnBPGoodPicker_;
  std::optional<std::int32_t> store_;
};

}  // namespace koru
