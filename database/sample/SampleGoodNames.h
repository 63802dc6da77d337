#pragma once

#include <span>
#include <string_view>

namespace koru::sample {

/// Goods that differ in kind and size alone. `kinds` and `sizes` are separated by "|"; each combination is a
/// good.
struct Family {
  std::string_view stem;  ///< empty when the kinds are whole names
  std::string_view kinds;
  std::string_view sizes;  ///< each with "=" and its price in per cent of `price`
  int group;               ///< the goods group
  int unit;                ///< the base unit
  int packing;             ///< the unit that suppliers deliver in; 0 when it is the base unit
  int price;               ///< retail price in Rials of one base unit
};

[[nodiscard]] std::span<const Family> DryFood();
[[nodiscard]] std::span<const Family> ColdFood();
[[nodiscard]] std::span<const Family> Cleaning();
[[nodiscard]] std::span<const Family> Hardware();

}  // namespace koru::sample
