#pragma once

#include <cstdint>

#include "platform/controls/Grid.h"
#include "platform/controls/TextBox.h"
#include "services/dteInvCounting.h"

namespace koru {

/// The line grid as a whole: its columns (LineColumns.h), the lines of a stored counting, their numbers and
/// colours, and the three sums of money below it. Row 0 is the header; lines are rows 1 to Rows() - 1.
class CountingLines {
 public:
  /// Backgrounds of the lines, 0x00BBGGRR.
  static constexpr std::uint32_t kOddRowColor = 0x00F7F2F0;  ///< also the grid's own
  static constexpr std::uint32_t kEvenRowColor = 0x00EEE2DF;

  /// All must outlive the object.
  CountingLines(Grid& flexDetail, TextBox& txtTotalBelowValue, TextBox& txtTotalAboveValue,
                TextBox& txtTotalValue, dteInvCounting& data)
      : flexDetail_(flexDetail),
        txtTotalBelowValue_(txtTotalBelowValue),
        txtTotalAboveValue_(txtTotalAboveValue),
        txtTotalValue_(txtTotalValue),
        data_(data) {}

  /// Gives the grid its 17 columns, their titles, and which of them a person may type into: the three counts,
  /// the accepted count and the rate. What the grid held is gone.
  void SetUp();

  /// Shows the lines of the counting `id` in place of those before, then sums and colours them. An unknown
  /// key shows none; a line whose good is no longer known is not shown. Throws DatabaseError; the grid is
  /// then empty.
  void FillInvCounterDetailData(std::int32_t id);

  /// Sums the three columns of amounts into their boxes, each rounded half to even to a whole number. A cell
  /// counts as its leading number; none is 0.
  void UpdateTotalQty();

  /// Numbers the lines 1 to n in column 0. Throws OverflowError when there are more than kMaxLines; the
  /// lines up to that one are numbered.
  void RefreshRows();

  /// Colours the lines in turn. The current cell stays where it is.
  void ColorRows();

 private:
  void AddLine(const Recordset& record);

  Grid& flexDetail_;
  TextBox& txtTotalBelowValue_;
  TextBox& txtTotalAboveValue_;
  TextBox& txtTotalValue_;
  dteInvCounting& data_;
};

}  // namespace koru
