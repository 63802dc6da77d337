#pragma once

#include <cstddef>
#include <vector>

#include "lines/MovedStock.h"
#include "lines/StockMoves.h"
#include "platform/controls/Button.h"
#include "platform/controls/Form.h"
#include "platform/controls/Grid.h"
#include "platform/controls/Label.h"
#include "services/SharedState.h"

namespace koru {

/// The columns of flexMoved.
namespace MovedColumn {
enum : int {
  RowNumber = 0,
  Mark = 1,
  Barcode = 2,
  GoodCode = 3,
  GoodName = 4,
  Shown = 5,
  Now = 6,
  Difference = 7
};
}  // namespace MovedColumn

/// The columns of flexDocuments.
namespace MoveColumn {
enum : int { RowNumber = 0, Kind = 1, Code = 2, Date = 3, Quantity = 4 };
}  // namespace MoveColumn

/// The modal list of the lines whose stock has moved, made anew for every check: what they show, what the
/// books say now, and the documents of the current one. A click on the mark column, or Space, marks a line.
class frmMovedStock : public Form {
 public:
  /// `lines` are the counting's. `mayTake`: without it the list is only looked at. All must outlive the form.
  frmMovedStock(SharedState& shared, const InvCountingControls& lines, const std::vector<MovedLine>& moved,
                bool mayTake);

  /// The lines whose new figures the user takes; empty until a command takes some.
  [[nodiscard]] const std::vector<MovedLine>& Taken() const { return taken_; }

  Label lblSummary{*this, "lblSummary"};
  Grid flexMoved{*this, "flexMoved"};
  Label lblDocuments{*this, "lblDocuments"};  ///< what the documents below explain
  Grid flexDocuments{*this, "flexDocuments"};
  Button cmdTakeAll{*this, "cmdTakeAll"};
  Button cmdTakeMarked{*this, "cmdTakeMarked"};
  Button cmdClose{*this, "cmdClose"};

  /// Unloads, since the list is not shown again.
  void UserClose() override { Unload(); }

 private:
  void SetUp(const InvCountingControls& lines);
  void ShowDocuments();
  void ShowMoves(const MoveExplanation& explanation);
  void ToggleMark();
  [[nodiscard]] bool IsMarked(int row) const;
  void FollowMarks();
  void Take(bool all);

  SharedState& shared_;
  const std::vector<MovedLine>& moved_;
  bool mayTake_;
  StockMovesReader moves_;
  std::vector<MovedLine> taken_;
};

}  // namespace koru
