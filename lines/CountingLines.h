#pragma once

#include <cstdint>

#include "counting/controls/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// The line grid flexDetail as a whole: its columns (LineColumns.h), the lines of a stored counting, their
/// numbers and colours, and the three sums of money below the grid. Row 0 is the header; the lines are rows 1
/// to Rows() - 1.
class CountingLines {
 public:
  /// Backgrounds of the lines, 0x00BBGGRR.
  static constexpr std::uint32_t kOddRowColor = 0x00F7F2F0;  ///< also the grid's own
  static constexpr std::uint32_t kEvenRowColor = 0x00EEE2DF;

  /// Both must outlive the object.
  CountingLines(InvCountingControls& controls, SharedState& shared)
      : controls_(controls), flexDetail_(controls.flexDetail), shared_(shared) {}

  /// Gives the grid its 17 columns, their titles, and the columns that a user can type into: the three
  /// counts, the accepted count and the rate. Removes all lines.
  void SetUp();

  /// Replaces the lines by those of the counting `id`, then sums and colours them. An unknown key has no
  /// lines; a line whose good no longer exists is left out. Throws DatabaseError, and the grid is then empty.
  void FillInvCounterDetailData(std::int32_t id);

  /// Sums the three columns of amounts into their boxes, each rounded half to even to a whole number. A cell
  /// counts as its leading number, or as 0 when it has none.
  void UpdateTotalQty();

  /// Numbers the lines 1 to n in column 0. Throws OverflowError when there are more than kMaxLines, after
  /// numbering the first kMaxLines.
  void RefreshRows();

  /// Colours odd and even lines. The current cell does not move.
  void ColorRows();

 private:
  void AddLine(const Recordset& record);

  InvCountingControls& controls_;
  Grid& flexDetail_;
  SharedState& shared_;
};

}  // namespace koru
