#pragma once

#include <vector>

#include "lines/CountingLines.h"
#include "platform/controls/Grid.h"
#include "services/Messages.h"
#include "services/SharedState.h"

namespace koru {

/// What happens when a person works in the line grid: it tests and normalises what is typed, derives a line's
/// shortage, surplus and amounts, asks before a line goes, takes empty lines away and sorts.
class LineEditing {
 public:
  /// Listens to the grid for as long as the object lives. All must outlive the object; `DocMode` is read when
  /// a line is to be deleted.
  LineEditing(Grid& flexDetail, CountingLines& lines, const Messages& messages, const DocumentMode& DocMode);
  LineEditing(const LineEditing&) = delete;
  LineEditing& operator=(const LineEditing&) = delete;
  ~LineEditing() = default;

  /// Derives shortage or surplus (3 decimals, half to even) and the amounts of a line from its accepted
  /// count, its book stock and its rate. While the accepted count is empty it counts as 0, and the counted
  /// amount keeps its text.
  void CalculateRow(int row);

  /// While suspended, lines without a barcode stay when the person leaves them.
  void SuspendEmptyRowRemoval(bool suspended) { emptyRowRemovalSuspended_ = suspended; }

 private:
  void ValidateEdit();
  void CellChanged();
  void RowDeleting();
  void RowDeleted();
  void RemoveEmptyRow();
  void SortBy(int col);

  Grid& flexDetail_;
  CountingLines& lines_;
  const Messages& messages_;
  const DocumentMode& docMode_;
  bool emptyRowRemovalSuspended_ = false;
  std::vector<Subscription> subscriptions_;
};

}  // namespace koru
