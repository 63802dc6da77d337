#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "lines/BookFigures.h"
#include "lines/CountingLines.h"
#include "lines/LineEditing.h"
#include "services/SharedState.h"

namespace koru {

/// Calculates the lines against the books (BookFigures). The header is read at each call; only the line grid
/// is written. Throws DatabaseError.
class SystemQuantity {
 public:
  /// All must outlive the object.
  SystemQuantity(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                 LineEditing& editing);

  /// The command cmdCalc: reads unit, rate and book stock of every line again, derives shortage, surplus and
  /// amounts, and sums. When the database fails, the lines done by then keep their results and pgbStatus
  /// stays visible. Returns false when the user cancels, and no line changes.
  bool CalculateAllLines();

  /// Reads the figures of every line in their order, as CalculateAllLines does, and changes no line. Nothing
  /// when the user cancels. When the database fails, pgbStatus stays visible.
  [[nodiscard]] std::optional<std::vector<BookFigures>> ReadAllLines();
  /// Puts figures into a line and derives its shortage, surplus and amounts. A line whose book stock was not
  /// read keeps its differences, too. The sums are the caller's to make.
  void FillLine(int row, const BookFigures& figures);

  /// Book stock of a good in a store; -1 (no store chosen) has none. Blanks around `barcode` are ignored.
  [[nodiscard]] double GetQTy(std::int32_t invID, std::string_view barcode);

 private:
  void ShowProgress();
  /// False when the user has cancelled.
  bool ReadFigures(std::vector<BookFigures>& figures);

  InvCountingControls& controls_;
  Grid& flexDetail_;
  SharedState& shared_;
  CountingLines& lines_;
  LineEditing& editing_;
};

}  // namespace koru
