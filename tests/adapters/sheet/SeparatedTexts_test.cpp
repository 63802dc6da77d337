#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "adapters/sheet/TableFile.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

using Cells = std::vector<std::vector<std::string>>;

Cells Read(std::string_view bytes) {
  const auto table = ReadTable(bytes, 0, [](int) { return true; });
  Cells cells;
  for (const FileTable::Row& row : table->rows) cells.push_back(row.cells);
  return cells;
}

std::string Refusal(std::string_view bytes) {
  try {
    static_cast<void>(Read(bytes));
  } catch (const InputError& refused) {
    return refused.what();
  }
  return "read";
}

TEST(SeparatedTexts, Commas_semicolons_and_tabs_separate) {
  const Cells cells{{"a", "b"}, {"1", "2"}};
  EXPECT_EQ(Read("a,b\n1,2\n"), cells);
  EXPECT_EQ(Read("a;b\r\n1;2"), cells);
  EXPECT_EQ(Read("a\tb\r1\t2\r"), cells);
}

TEST(SeparatedTexts, A_separator_in_quotes_does_not_count) {
  EXPECT_EQ(Read("\"a,b,c\";d\n\"1,5\";2"), (Cells{{"a,b,c", "d"}, {"1,5", "2"}}));
}

TEST(SeparatedTexts, Quoted_fields_have_quotes_and_line_breaks) {
  EXPECT_EQ(Read("\"a \"\"b\"\"\",\"c\nd\"\n\"\",e"), (Cells{{"a \"b\"", "c\nd"}, {"", "e"}}));
}

TEST(SeparatedTexts, A_quote_that_is_not_closed_is_reported_with_its_row) {
  EXPECT_EQ(Refusal("a,b\n1,\"2\n3,4\n"), "گيومة سطر 2 بسته نشده است.");
}

TEST(SeparatedTexts, Empty_rows_are_left_out_and_counted) {
  const auto table = ReadTable("a,b\n\n,\n1,2", 0, [](int) { return true; });
  ASSERT_EQ(table->rows.size(), 2U);
  EXPECT_EQ(table->rows[1].number, 4);
  EXPECT_EQ(Read(""), Cells{});
}

TEST(SeparatedTexts, Utf_8_with_and_without_a_mark_is_read) {
  EXPECT_EQ(Read("باركد,۱"), (Cells{{"باركد", "۱"}}));
  EXPECT_EQ(Read("\xEF\xBB\xBFباركد,۱"), (Cells{{"باركد", "۱"}}));
}

TEST(SeparatedTexts, Utf_16_with_a_mark_is_read) {
  using namespace std::string_view_literals;
  const Cells cells{{"ب\U0001F600", "1"}};
  EXPECT_EQ(Read("\xFF\xFE\x28\x06\x3D\xD8\x00\xDE,\0\x31\0"sv), cells);
  EXPECT_EQ(Read("\xFE\xFF\x06\x28\xD8\x3D\xDE\x00\0,\0\x31"sv), cells);
}

TEST(SeparatedTexts, Other_bytes_are_those_of_Persian_Windows) {
  EXPECT_EQ(Read("\xC8\xC7\xD1\x98\xCF;\x81\x8D\x8E\x90\xED\x9D\xE5\xC7"),
            (Cells{{"بارکد", "پچژگي\u200cها"}}));
}

TEST(SeparatedTexts, A_file_that_is_no_text_is_refused) {
  using namespace std::string_view_literals;
  EXPECT_EQ(Refusal("\x7F"
                    "ELF\0\0"sv),
            "نه پروندة اكسل (xlsx) است و نه متني با ستون\u200cها (CSV).");
  EXPECT_EQ(Refusal("\xD0\xCF\x11\xE0..."),
            "كارپوشة قديمي اكسل است يا گذرواژه دارد؛ آن را بي گذرواژه و با پسوند xlsx ذخيره كنيد.");
}

TEST(SeparatedTexts, A_counting_of_the_largest_size_is_read_and_one_more_row_is_refused) {
  std::string text = "a,b\n";
  for (int i = 0; i < 32767; ++i) text += "4001,1\n";
  EXPECT_EQ(Read(text).size(), 32768U);
  EXPECT_EQ(Refusal(text + "4001,1\n"), "بيش از 32768 سطر دارد؛ آن را به چند پرونده تقسيم كنيد.");
}

TEST(SeparatedTexts, Huge_cells_and_too_many_columns_are_refused) {
  EXPECT_EQ(Read(std::string(32767, 'a') + ",b").front().front().size(), 32767U);
  EXPECT_EQ(Refusal(std::string(32768, 'a') + ",b"), "خانه\u200cاي بيش از 32767 نويسه دارد.");
  EXPECT_EQ(Refusal("a" + std::string(256, ',') + "b"), "بيش از 256 ستون دارد.");
}

TEST(SeparatedTexts, Reading_can_be_cancelled) {
  std::string text;
  for (int i = 0; i < 600; ++i) text += "1,2\n";
  EXPECT_FALSE(ReadTable(text, 0, [](int) { return false; }).has_value());
}

TEST(SeparatedTexts, A_file_that_does_not_exist_is_named) {
  try {
    static_cast<void>(ReadTableFile("/nowhere/شمارش.csv", 0, [](int) { return true; }));
    FAIL();
  } catch (const InputError& refused) {
    EXPECT_NE(std::string(refused.what()).find("/nowhere/شمارش.csv"), std::string::npos);
  }
}

}  // namespace
}  // namespace koru
