#include <gtest/gtest.h>

#include <string>

#include "adapters/sheet/TableFile.h"
#include "platform/text/Errors.h"
#include "tests/adapters/sheet/PackedBytes.h"

namespace koru::test {
namespace {

constexpr const char* kDamaged = "كامل نيست يا خراب است.";
constexpr const char* kHostile = "چيزي دارد كه در كارپوشة اكسل نيست.";
constexpr const char* kTooMuchText = "نوشته\u200cهاي آن براي يك شمارش بيش از اندازه است.";
constexpr const char* kBomb = "فشرده است و بازشدة آن بيش از اندازه بزرگ است.";

std::string Outcome(const std::string& bytes) {
  try {
    static_cast<void>(ReadTable(bytes, 0, [](int) { return true; }));
  } catch (const InputError& refused) {
    return refused.what();
  }
  return "read";
}

std::string OutcomeOf(const std::string& rows, const std::string& texts = {}) {
  return Outcome(PackedBytes(WorkbookParts(rows, texts)));
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(HostileWorkbooks, Entities_that_grow_are_refused) {
  Parts parts = WorkbookParts("<row><c t=\"inlineStr\"><is><t>&c;</t></is></c></row>");
  parts[3].second.insert(
      0, "<!DOCTYPE x [<!ENTITY a \"ha\"><!ENTITY b \"&a;&a;&a;&a;\"><!ENTITY c \"&b;&b;&b;\">]>");
  EXPECT_EQ(Outcome(PackedBytes(parts)), kHostile);
}

TEST(HostileWorkbooks, Files_of_the_machine_are_not_read) {
  Parts parts = WorkbookParts("<row><c t=\"inlineStr\"><is><t>&e;</t></is></c></row>");
  parts[3].second.insert(0, "<!DOCTYPE x [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>");
  EXPECT_EQ(Outcome(PackedBytes(parts)), kHostile);
}

TEST(HostileWorkbooks, A_part_that_unpacks_to_very_much_is_refused) {
  EXPECT_EQ(OutcomeOf(std::string(std::size_t{2} << 20U, ' ')), kBomb);
}

TEST(HostileWorkbooks, One_long_text_in_very_many_cells_is_refused) {
  const std::string row = "<row>" + Repeated("<c t=\"s\"><v>0</v></c>", 200) + "</row>";
  std::string rows;
  for (int i = 0; i < 40; ++i) rows += "<!--" + std::to_string(i * 7919) + "-->" + row;
  EXPECT_EQ(OutcomeOf(rows, "<si><t>" + std::string(32767, 'a') + "</t></si>"), kTooMuchText);
}

TEST(HostileWorkbooks, A_huge_cell_is_refused) {
  const std::string huge = "<t>" + std::string(32768, 'a') + "</t>";
  constexpr const char* kTooLong = "خانه\u200cاي بيش از 32767 نويسه دارد.";
  EXPECT_EQ(OutcomeOf("<row><c t=\"inlineStr\"><is>" + huge + "</is></c></row>"), kTooLong);
  EXPECT_EQ(OutcomeOf({}, "<si>" + huge + "</si>"), kTooLong);
}

TEST(HostileWorkbooks, A_cell_in_a_column_far_away_is_refused) {
  EXPECT_EQ(OutcomeOf("<row><c r=\"IW1\"><v>1</v></c></row>"), "بيش از 256 ستون دارد.");
  EXPECT_EQ(OutcomeOf("<row><c r=\"ZZZZZZZZZZ1\"><v>1</v></c></row>"), kDamaged);
}

TEST(HostileWorkbooks, More_rows_than_a_counting_has_lines_are_refused) {
  std::string rows;
  for (int i = 0; i < 32769; ++i) rows += "<row><c><v>" + std::to_string(i * 7919) + "</v></c></row>";
  EXPECT_EQ(OutcomeOf(rows), "بيش از 32768 سطر دارد؛ آن را به چند پرونده تقسيم كنيد.");
}

TEST(HostileWorkbooks, Deep_nesting_and_thousands_of_attributes_are_refused) {
  EXPECT_EQ(OutcomeOf("<row>" + Repeated("<c>", 100)), kHostile);
  std::string attributes;
  for (int i = 0; i < 2100; ++i) attributes += " a" + std::to_string(i) + " = '>'";
  EXPECT_EQ(OutcomeOf("<row" + attributes + "/>"), kHostile);
}

TEST(HostileWorkbooks, Texts_and_sheets_that_do_not_exist_are_damage) {
  EXPECT_EQ(OutcomeOf("<row><c t=\"s\"><v>3</v></c></row>", "<si><t>a</t></si>"), kDamaged);
  EXPECT_EQ(OutcomeOf("<row><c t=\"s\"><v>-1</v></c></row>", "<si><t>a</t></si>"), kDamaged);
  Parts parts = WorkbookParts("");
  parts.erase(parts.begin() + 3);
  EXPECT_EQ(Outcome(PackedBytes(parts)), "كارپوشة اكسل (xlsx) نيست.");
  parts = WorkbookParts("");
  parts[1].second = "<workbook/>";
  EXPECT_EQ(Outcome(PackedBytes(parts)), "برگه\u200cاي ندارد.");
}

TEST(HostileWorkbooks, Broken_xml_is_damage) {
  EXPECT_EQ(OutcomeOf("<row><c><v>1</v></row>"), kDamaged);
  EXPECT_EQ(OutcomeOf("<row><c><v>1&x;</v></c></row>"), kDamaged);
  EXPECT_EQ(OutcomeOf(std::string("<row>\0</row>", 12)), kHostile);
}

TEST(HostileWorkbooks, Another_packed_file_is_no_workbook) {
  EXPECT_EQ(Outcome(PackedBytes({{"content.xml", "<a/>"}})), "كارپوشة اكسل (xlsx) نيست.");
}

TEST(HostileWorkbooks, A_workbook_that_ends_early_or_has_another_byte_is_refused_or_read) {
  std::string rows;
  for (int i = 0; i < 50; ++i) rows += "<row><c><v>" + std::to_string(i * 31) + "</v></c></row>";
  const std::string whole = PackedBytes(WorkbookParts(rows));
  ASSERT_EQ(Outcome(whole), "read");
  for (std::size_t size = 4; size < whole.size(); ++size)
    EXPECT_NE(Outcome(whole.substr(0, size)), "read") << size;
  for (std::size_t at = 4; at < whole.size(); ++at) {
    std::string other = whole;
    other[at] = static_cast<char>(other[at] ^ 0x55);
    EXPECT_FALSE(Outcome(other).empty());
  }
}

TEST(HostileWorkbooks, A_figure_that_was_changed_in_the_packed_file_is_found_by_its_check_sum) {
  std::string bytes = PackedBytes(WorkbookParts("<row><c><v>12345</v></c></row>"), false);
  const std::size_t at = bytes.find("12345");
  ASSERT_NE(at, std::string::npos);
  bytes[at] = '9';
  EXPECT_EQ(Outcome(bytes), kDamaged);
}

}  // namespace
}  // namespace koru::test
