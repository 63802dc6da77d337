#pragma once

#include <functional>
#include <optional>

#include "lines/CountingLines.h"
#include "lines/SystemQuantity.h"
#include "platform/controls/Grid.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/ports/Screen.h"
#include "services/Messages.h"
#include "services/dteInvCounting.h"

namespace koru {

/// The command cmdGoods: a line for every good that the goods search finds and the counting does not hold
/// yet. A new line starts as not yet counted: its whole book stock is a shortage.
class AddGoods {
 public:
  /// All must outlive the object. `showGoodSearch` shows the goods search modally and returns when it was
  /// left; `goodSearchCondition` is the condition on goods that it leaves behind, empty when nothing was
  /// searched.
  AddGoods(Grid& flexDetail, const TreeSelector& gmpInventory, ProgressBar& pgbStatus, Screen& screen,
           dteInvCounting& data, const Messages& messages, SystemQuantity& quantity, CountingLines& lines,
           std::function<void()> showGoodSearch, const SqlText& goodSearchCondition);

  /// Refused with a message while no store is chosen; on a counting with lines, asked first. A counting ends
  /// at kMaxLines lines: goods that fit are added, and the user is told that there were more. How
  /// many lines were added; nothing when the search was not made. Throws DatabaseError; lines added before
  /// stay.
  std::optional<int> Run();

 private:
  /// False when there was no room for all.
  bool AddFound(Recordset& goods);
  void AddLine(const Recordset& good);

  Grid& flexDetail_;
  const TreeSelector& gmpInventory_;
  ProgressBar& pgbStatus_;
  Screen& screen_;
  dteInvCounting& data_;
  const Messages& messages_;
  SystemQuantity& quantity_;
  CountingLines& lines_;
  std::function<void()> showGoodSearch_;
  const SqlText& goodSearchCondition_;
};

}  // namespace koru
