#pragma once

#include <cstdint>
#include <string_view>

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

  /// Book stock of a good in a store; -1 (no store chosen) has none. Blanks around `barcode` are ignored.
  [[nodiscard]] double GetQTy(std::int32_t invID, std::string_view barcode);

 private:
  /// False when the user has cancelled.
  bool ReadFigures(std::vector<BookFigures>& figures);
  void FillLine(int row, const BookFigures& figures);

  InvCountingControls& controls_;
  Grid& flexDetail_;
  SharedState& shared_;
  CountingLines& lines_;
  LineEditing& editing_;
};

}  // namespace koru
