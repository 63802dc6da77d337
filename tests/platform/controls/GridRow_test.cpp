#include "platform/controls/GridRow.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace koru {
namespace {

std::vector<std::string> TextsOf(const GridRow& row, std::size_t cols) {
  std::vector<std::string> texts;
  for (std::size_t col = 0; col < cols; ++col) texts.emplace_back(row.Text(col));
  return texts;
}

using Texts = std::vector<std::string>;

TEST(GridRow, Longer_shorter_and_equally_long_texts_leave_the_other_cells_as_they_are) {
  GridRow row(3);
  EXPECT_EQ(TextsOf(row, 3), (Texts{"", "", ""}));
  row.SetText(1, "برنج");
  row.SetText(0, "12");
  row.SetText(2, std::string(300, 'x'));
  row.SetText(0, "34");
  row.SetText(2, "0.5");
  EXPECT_EQ(TextsOf(row, 3), (Texts{"34", "برنج", "0.5"}));
  row.SetText(1, "");
  EXPECT_EQ(TextsOf(row, 3), (Texts{"34", "", "0.5"}));
}

TEST(GridRow, Keeps_its_texts_whatever_their_length_together) {
  for (const std::size_t length : {250U, 251U, 252U, 253U, 254U, 70'000U}) {
    const std::string text(length, 'x');
    GridRow row(3);
    row.SetText(1, text);
    row.SetText(0, "1");
    row.SetText(2, "3");
    EXPECT_EQ(TextsOf(row, 3), (Texts{"1", text, "3"})) << length;
    EXPECT_EQ(TextsOf(GridRow(Texts{"1", text, "3"}), 3), (Texts{"1", text, "3"})) << length;
    row.SetText(1, "");
    EXPECT_EQ(TextsOf(row, 3), (Texts{"1", "", "3"})) << length;
  }
}

TEST(GridRow, A_text_may_be_copied_from_another_cell_of_the_row) {
  GridRow row(3);
  row.SetText(0, "12.5");
  row.SetText(1, row.Text(0));
  row.SetText(2, row.Text(1).substr(0, 2));
  row.SetText(0, row.Text(0).substr(1));
  EXPECT_EQ(TextsOf(row, 3), (Texts{"2.5", "12.5", "12"}));
}

TEST(GridRow, Is_made_of_all_its_texts_at_once) {
  GridRow row(std::array<std::string, 3>{"1", "", "چاي"});
  EXPECT_EQ(TextsOf(row, 3), (Texts{"1", "", "چاي"}));
  row.SetText(1, "x");
  EXPECT_EQ(TextsOf(row, 3), (Texts{"1", "x", "چاي"}));
}

TEST(GridRow, Has_no_other_columns_than_its_own) {
  GridRow row(2);
  EXPECT_THROW(static_cast<void>(row.Text(2)), std::out_of_range);
  EXPECT_THROW(row.SetText(2, "x"), std::out_of_range);
  EXPECT_THROW(static_cast<void>(GridRow().Text(0)), std::out_of_range);
}

}  // namespace
}  // namespace koru
