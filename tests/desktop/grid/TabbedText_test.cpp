#include "desktop/grid/TabbedText.h"

#include <gtest/gtest.h>

namespace koru::test {
namespace {

using Rows = std::vector<QStringList>;

TEST(TabbedText, Rows_end_with_line_breaks_and_cells_with_tabs_as_spreadsheets_copy_them) {
  EXPECT_EQ(CellsOf("1\t2\r\n3\t\r\n"), Rows({{"1", "2"}, {"3", ""}}));
  EXPECT_EQ(CellsOf("1"), Rows({{"1"}}));
  EXPECT_EQ(CellsOf("1\n\n2"), Rows({{"1"}, {""}, {"2"}}));
  EXPECT_EQ(CellsOf("\t"), Rows({{"", ""}}));
  EXPECT_EQ(CellsOf(""), Rows());
  EXPECT_EQ(CellsOf("\n"), Rows({{""}}));
}

TEST(TabbedText, A_cell_in_quotes_has_its_tabs_line_breaks_and_quotes) {
  EXPECT_EQ(CellsOf("\"a\tb\"\t\"c\nd\"\n\"e\"\"f\""), Rows({{"a\tb", "c\nd"}, {"e\"f"}}));
  EXPECT_EQ(CellsOf("\"\"\t1"), Rows({{"", "1"}}));
}

TEST(TabbedText, A_quote_that_does_not_enclose_a_cell_is_a_character_of_it) {
  EXPECT_EQ(CellsOf("5\" pipe\t1"), Rows({{"5\" pipe", "1"}}));
  EXPECT_EQ(CellsOf("\"open\t1\n2"), Rows({{"\"open", "1"}, {"2"}}));
  EXPECT_EQ(CellsOf("\"a\"b\t1"), Rows({{"\"a\"b", "1"}}));
}

TEST(TabbedText, What_is_written_reads_back) {
  for (const Rows& rows : {Rows({{"1", "2"}, {"", ""}}), Rows({{"a\tb", "\"q\" x", "5\"", "\n"}}),
                           Rows({{""}}), Rows({{"\""}, {"\"\"", "\t"}})}) {
    EXPECT_EQ(CellsOf(TabbedText(rows)), rows) << TabbedText(rows).toStdString();
  }
  EXPECT_EQ(TabbedText({{"1", "2"}, {"3", "4\t5"}}), "1\t2\n3\t\"4\t5\"\n");
}

}  // namespace
}  // namespace koru::test
