#pragma once

#include <functional>
#include <optional>

#include "counting/controls/InvCountingControls.h"
#include "lines/CountingLines.h"
#include "lines/SystemQuantity.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdGoods: adds a line for every good that the goods search finds and that has no line yet. A
/// new line is one that was not counted: its whole book stock is a shortage.
class AddGoods {
 public:
  /// Shows the goods search modally. Returns the condition on tblGood that it leaves, empty when the user
  /// searched nothing.
  using GoodSearch = std::function<const SqlText&()>;

  /// All must outlive the object.
  AddGoods(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
           SystemQuantity& quantity);

  /// Refused with a message while no store is chosen; asks first when the counting has lines. A counting
  /// holds up to kMaxLines lines: further goods are left out, with a message. Returns the count of added
  /// lines, or nothing when no search was made. Throws DatabaseError; lines added by then stay.
  std::optional<int> Run(const GoodSearch& search);

 private:
  [[nodiscard]] bool MayAdd();
  /// False when some goods were left out.
  bool AddFound(Recordset& goods);
  void AddLine(const Recordset& good);

  InvCountingControls& controls_;
  Grid& flexDetail_;
  SharedState& shared_;
  CountingLines& lines_;
  SystemQuantity& quantity_;
};

}  // namespace koru
