#pragma once

namespace koru {

/// The columns of the line grid flexDetail.
namespace LineColumn {
enum : int {
  RowNumber = 0,
  Barcode = 1,
  GoodCode = 2,
  GoodName = 3,
  UnitName = 4,
  ScaleID = 5,  ///< -1 when the line has no unit
  FirstCounting = 6,
  SecondCounting = 7,
  ThirdCounting = 8,
  AcceptedCounting = 9,
  SystemCounting = 10,
  Shortage = 11,
  Surplus = 12,
  Rate = 13,
  ShortageAmount = 14,
  SurplusAmount = 15,
  CountedAmount = 16
};
}  // namespace LineColumn

inline constexpr int kLineColumns = 17;

/// Row numbers are 16-bit: a counting has at most this number of lines.
inline constexpr int kMaxLines = 32767;

}  // namespace koru
