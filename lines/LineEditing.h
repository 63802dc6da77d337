#pragma once

#include <set>
#include <string_view>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "lines/CountingLines.h"
#include "services/SharedState.h"

namespace koru {

/// A larger figure is stored, but the user is warned.
inline constexpr double kMaxQuantityWithoutWarning = 1e9;
/// Whether the form refuses a figure with a message.
[[nodiscard]] constexpr bool IsRefusedQuantity(double figure) { return figure < 0; }

/// What happens while a user works in the line grid: typed figures are tested and normalised, a line's
/// shortage, surplus and amounts are derived, the user confirms before a line is removed, lines without a
/// barcode are removed, and a click on a title sorts.
class LineEditing {
 public:
  /// Listens to the grid during the object's lifetime. All must outlive the object.
  LineEditing(InvCountingControls& controls, SharedState& shared, CountingLines& lines);
  LineEditing(const LineEditing&) = delete;
  LineEditing& operator=(const LineEditing&) = delete;
  ~LineEditing() = default;

  /// Derives shortage or surplus (3 decimals, half to even) and the amounts of a line from its accepted
  /// count, its book stock and its rate. An empty accepted count counts as 0, and the counted amount then
  /// keeps its text.
  void CalculateRow(int row);

  /// While suspended, a line without a barcode stays when the user leaves it. Kept for the suite: nothing in
  /// this component suspends it.
  void SuspendEmptyRowRemoval(bool suspended) { emptyRowRemovalSuspended_ = suspended; }

 private:
  void ValidateEdit();
  void Warn(const char* message);
  void CellChanged();
  void RowDeleting();
  void RowDeleted();
  void RemoveEmptyRow();
  void SortBy(const SortRequest& request);

  Grid& flexDetail_;
  SharedState& shared_;
  CountingLines& lines_;
  bool emptyRowRemovalSuspended_ = false;
  std::set<std::string_view> warnedInBatch_;  ///< a batch shows each message once
  std::vector<Subscription> subscriptions_;
};

}  // namespace koru
