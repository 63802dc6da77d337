#include "platform/controls/GridSort.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/controls/Grid.h"

namespace koru {
namespace {

std::vector<std::string> Sorted(const std::vector<std::string>& texts, SortMode mode) {
  std::vector<GridRow> rows;
  rows.emplace_back(2).SetText(0, "header");
  for (std::size_t i = 0; i < texts.size(); ++i) {
    GridRow& row = rows.emplace_back(2);
    row.SetText(0, texts[i]);
    row.SetText(1, std::to_string(i));
  }
  SortRows(rows, 0, mode);
  EXPECT_EQ(rows.front().Text(0), "header");
  std::vector<std::string> sorted;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    sorted.emplace_back(rows[i].Text(0));
    EXPECT_EQ(rows[i].Text(0), texts[std::stoul(std::string(rows[i].Text(1)))]) << "rows move as a whole";
  }
  return sorted;
}

TEST(GridSort, Numbers_are_ordered_as_numbers_and_before_texts) {
  EXPECT_EQ(Sorted({"10", "9", "-2.5", "abc", "1E+15", "", "9.0", "2"}, SortMode::GenericAscending),
            (std::vector<std::string>{"-2.5", "2", "9", "9.0", "10", "1E+15", "", "abc"}));
}

TEST(GridSort, Names_that_a_computer_reads_as_numbers_are_texts) {
  EXPECT_EQ(Sorted({"10", "NaN", "2", "inf", "abc", "-Infinity"}, SortMode::GenericAscending),
            (std::vector<std::string>{"2", "10", "-Infinity", "abc", "inf", "NaN"}));
}

TEST(GridSort, Persian_texts_are_in_the_alphabets_order_whatever_the_keyboard) {
  EXPECT_EQ(Sorted({"گردو", "كره", "پنير", "بادام", "کره"}, SortMode::GenericAscending),
            (std::vector<std::string>{"بادام", "پنير", "كره", "کره", "گردو"}));
}

TEST(GridSort, Text_order_ignores_case_and_takes_digits_as_text) {
  EXPECT_EQ(Sorted({"b2", "A10", "a9", "10", "9"}, SortMode::TextNoCaseAscending),
            (std::vector<std::string>{"10", "9", "A10", "a9", "b2"}));
}

TEST(GridSort, Downwards_the_largest_numbers_come_first_and_empty_cells_last) {
  EXPECT_EQ(Sorted({"10", "", "9", "-2.5", "abc", "9.0", "", "xyz"}, SortMode::GenericDescending),
            (std::vector<std::string>{"10", "9", "9.0", "-2.5", "xyz", "abc", "", ""}));
  EXPECT_EQ(Sorted({"b2", "A10", "", "a9", "10", "9"}, SortMode::TextNoCaseDescending),
            (std::vector<std::string>{"b2", "a9", "A10", "9", "10", ""}));
}

TEST(GridSort, A_grid_with_only_its_header_stays_as_it_is) {
  EXPECT_TRUE(Sorted({}, SortMode::GenericAscending).empty());
}

}  // namespace
}  // namespace koru
