#pragma once

#include <cstdint>

#include "counting/controls/InvCountingControls.h"
#include "services/Messages.h"

namespace koru {

/// The store that the book figures on the lines belong to. A change of the store keeps the lines as they are;
/// registered before they are calculated again, they would correct one store by the stock of another.
class StoreOfFigures {
 public:
  /// Both must outlive the object.
  StoreOfFigures(const InvCountingControls& controls, const Messages& messages)
      : gmpInventory_(controls.gmpInventory), flexDetail_(controls.flexDetail), messages_(messages) {}

  /// Notes that the figures belong to the selected store.
  void Follow() { store_ = gmpInventory_.SelectedID(); }
  /// To be called after each change of the selection: without lines there are no figures of another store.
  void StoreHasChanged() {
    if (!HasLines()) Follow();
  }
  /// Asks before lines with the figures of another store are stored; false when the answer is no.
  [[nodiscard]] bool MayBeStored() const;

 private:
  [[nodiscard]] bool HasLines() const { return flexDetail_.Rows() > 1; }

  const TreeSelector& gmpInventory_;
  const Grid& flexDetail_;
  const Messages& messages_;
  std::int32_t store_ = Selector::kNothing;
};

}  // namespace koru
