#pragma once

#include <array>
#include <random>
#include <string>

namespace koru {

/// What a user types into a number box, and the number that a statement then holds.
struct NumberCase {
  std::string typed;
  std::string number;
};

inline const std::array<NumberCase, 12> kNumberCases = {{{"1500", "1500"},
                                                         {"12abc", "12"},
                                                         {"abc", "0"},
                                                         {"  7  ", "7"},
                                                         {"-3.50", "-3.5"},
                                                         {"1e3", "1000"},
                                                         {".25", "0.25"},
                                                         {"0012", "12"},
                                                         {"۱۲۳", "123"},
                                                         {"٤٥", "45"},
                                                         {"1e20", "1E+20"},
                                                         {"7' or 1=1", "7"}}};

/// Texts without a single apostrophe.
inline const std::array<std::string, 9> kTexts = {"A-1", "  كتاب ", "کتاب ۱۲", "50%",  "a*b_c",
                                                  "[x]", "''",      "-- 1",    "٣ عدد"};

template <class Pool>
const auto& AnyOf(const Pool& pool, std::mt19937& random) {
  return pool[random() % pool.size()];
}

/// Without the blanks at both ends.
inline std::string WithoutOuterBlanks(std::string text) {
  while (!text.empty() && text.front() == ' ') text.erase(0, 1);
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

}  // namespace koru
