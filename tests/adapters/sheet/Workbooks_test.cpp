#include <gtest/gtest.h>
#include <xlsxwriter.h>

#include <string>
#include <vector>

#include "adapters/sheet/TableFile.h"
#include "adapters/xlsx/WorkbookFile.h"
#include "platform/text/Errors.h"
#include "tests/adapters/sheet/PackedBytes.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

bool GoOn(int) { return true; }

/// The rows of a table as "number: cell|cell".
std::vector<std::string> Written(const FileTable& table) {
  std::vector<std::string> rows;
  for (const FileTable::Row& row : table.rows) {
    std::string text = std::to_string(row.number) + ":";
    for (const std::string& cell : row.cells) text += (&cell == &row.cells.front() ? " " : "|") + cell;
    rows.push_back(text);
  }
  return rows;
}

std::vector<std::string> Read(const std::string& rows, const std::string& texts = {}) {
  return Written(*ReadTable(PackedBytes(WorkbookParts(rows, texts)), 0, GoOn));
}

using Rows = std::vector<std::string>;

TEST(Workbooks, The_workbook_of_the_program_is_read_as_it_was_written) {
  const TemporaryFolder folder;
  const std::string file = folder.File("a.xlsx");
  ASSERT_EQ(WriteWorkbook(file, "شمارش", {{"باركد", "نام"}, {"0012", " _x0041_ <&>\t\""}, {}, {"", "۳"}}),
            "");
  const auto table = ReadTableFile(file, 0, GoOn);
  EXPECT_EQ(Written(*table), (Rows{"1: باركد|نام", "2: 0012| _x0041_ <&>\t\"", "4: |۳"}));
  EXPECT_EQ(table->sheets, Rows{"شمارش"});
}

TEST(Workbooks, Numbers_of_the_library_are_figures) {
  const TemporaryFolder folder;
  const std::string file = folder.File("a.xlsx");
  lxw_workbook* const book = workbook_new(file.c_str());
  lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
  worksheet_write_number(sheet, 0, 0, 12.5, nullptr);
  worksheet_write_number(sheet, 0, 1, 6260000000001.0, nullptr);
  worksheet_write_number(sheet, 0, 2, 0.1 + 0.2, nullptr);
  worksheet_write_boolean(sheet, 0, 3, 1, nullptr);
  worksheet_write_formula_num(sheet, 0, 4, "=6*7", nullptr, 42);
  worksheet_write_string(sheet, 0, 5, "a", nullptr);
  ASSERT_EQ(workbook_close(book), LXW_NO_ERROR);
  EXPECT_EQ(Written(*ReadTableFile(file, 0, GoOn)), Rows{"1: 12.5|6260000000001|0.3|TRUE|42|a"});
}

TEST(Workbooks, Numbers_are_read_however_they_are_written) {
  EXPECT_EQ(
      Read("<row><c><v>1.2E1</v></c><c t=\"n\"><v> 6.26E12 </v></c><c><v>1e-2</v></c><c><v>x</v></c></row>"),
      Rows{"1: 12|6260000000000|0.01|x"});
}

TEST(Workbooks, Shared_texts_are_found_with_all_their_runs_and_without_phonetic_ones) {
  EXPECT_EQ(
      Read("<row><c t=\"s\"><v>1</v></c><c t=\"s\"><v>0</v></c></row>",
           "<si><t>a</t></si><si><r><t>b </t></r><r><rPr><b/></rPr><t>c</t></r><rPh><t>no</t></rPh></si>"),
      Rows{"1: b c|a"});
}

TEST(Workbooks, Cells_are_placed_by_their_references_or_after_one_another) {
  EXPECT_EQ(Read("<row r=\"3\"><c r=\"C3\"><v>1</v></c><c><v>2</v></c></row><row/><row><c><v>3</v></c></row>"
                 "<row r=\"9\"><c r=\"AA9\"><v>4</v></c></row>"),
            (Rows{"3: ||1|2", "5: 3", "9: " + std::string(26, '|') + "4"}));
}

TEST(Workbooks, Formulas_errors_and_inline_texts_give_their_results) {
  EXPECT_EQ(Read("<row><c t=\"str\"><f>A1</f><v>r</v></c><c t=\"e\"><v>#N/A</v></c>"
                 "<c t=\"b\"><v>0</v></c><c t=\"inlineStr\"><is><r><t>i</t></r></is></c></row>"),
            Rows{"1: r|#N/A|FALSE|i"});
}

TEST(Workbooks, Characters_that_are_written_by_their_number_are_read) {
  EXPECT_EQ(Read("<row><c t=\"inlineStr\"><is><t>_x0041_ _x005F_x0041_ _xD83D__xDE00_ _x00G1_ "
                 "_x41_</t></is></c></row>"),
            Rows{"1: A _x0041_ \U0001F600 _x00G1_ _x41_"});
}

TEST(Workbooks, Of_merged_cells_the_first_has_the_text) {
  Parts parts = WorkbookParts("<row><c r=\"A1\"><v>5</v></c><c r=\"B1\"/></row><row><c r=\"A2\"/></row>");
  parts[3].second.insert(parts[3].second.find("</worksheet>"),
                         "<mergeCells><mergeCell ref=\"A1:B2\"/></mergeCells>");
  EXPECT_EQ(Written(*ReadTable(PackedBytes(parts), 0, GoOn)), Rows{"1: 5"});
}

TEST(Workbooks, Visible_sheets_are_offered_and_any_of_them_is_read) {
  Parts parts = WorkbookParts("<row><c><v>1</v></c></row>");
  parts[1].second =
      "<workbook><sheets><sheet name=\"h\" state=\"hidden\" r:id=\"r1\"/><sheet name=\"a\" r:id=\"r1\"/>"
      "<sheet name=\"b\" q:id=\"r9\"/></sheets></workbook>";
  parts[2].second.insert(parts[2].second.find("</Rel"),
                         "<Relationship Type=\"x/worksheet\" Id=\"r9\" Target=\"/xl/b.xml\"/>");
  parts.emplace_back(
      "xl/b.xml",
      "<x:worksheet><x:sheetData><x:row><x:c><x:v>2</x:v></x:c></x:row></x:sheetData></x:worksheet>");
  const std::string bytes = PackedBytes(parts);
  const auto first = ReadTable(bytes, 0, GoOn);
  EXPECT_EQ(first->sheets, (Rows{"a", "b"}));
  EXPECT_EQ(Written(*first), Rows{"1: 1"});
  const auto second = ReadTable(bytes, 1, GoOn);
  EXPECT_EQ(second->sheet, 1U);
  EXPECT_EQ(Written(*second), Rows{"1: 2"});
}

TEST(Workbooks, Reading_is_reported_and_can_be_cancelled) {
  std::string rows;
  for (int i = 0; i < 2000; ++i) rows += "<row><c><v>" + std::to_string(i) + "</v></c></row>";
  const std::string bytes = PackedBytes(WorkbookParts(rows));
  int last = -1;
  const auto table = ReadTable(bytes, 0, [&](int permille) {
    EXPECT_GE(permille, last);
    EXPECT_LE(permille, 1000);
    last = permille;
    return true;
  });
  EXPECT_EQ(table->rows.size(), 2000U);
  EXPECT_GE(last, 0);
  EXPECT_FALSE(ReadTable(bytes, 0, [](int) { return false; }).has_value());
}

}  // namespace
}  // namespace koru::test
