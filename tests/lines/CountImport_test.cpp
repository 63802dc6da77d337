#include "lines/CountImport.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

/// A table whose first row has the number 1, as in a file.
FileTable TableOf(std::initializer_list<std::vector<std::string>> rows) {
  FileTable table;
  for (const auto& cells : rows) table.rows.push_back({static_cast<int>(table.rows.size()) + 1, cells});
  return table;
}

class CountImportTest : public LinesTest {
 protected:
  void SetUp() override {
    for (const char* barcode : {"4001", "4002", "AB-7"}) {
      const int row = form.AddLine(barcode);
      form.Set(row, LineColumn::GoodCode, "c" + std::to_string(row));
    }
  }

  std::vector<ImportedFigure> Plan(const FileTable& table) const {
    return PlanImport(table, FindColumns(table), rules, form.flexDetail);
  }
  /// Each planned figure as "row of the file: row of the grid, column, figure to be entered, state".
  Texts Planned(const FileTable& table) const {
    Texts planned;
    for (const ImportedFigure& figure : Plan(table)) {
      planned.push_back(std::to_string(figure.fileRow) + ": " + std::to_string(figure.line) + ", " +
                        std::to_string(figure.col) + ", " + figure.after + ", " + StateText(figure));
    }
    return planned;
  }
  ImportOutcome Apply(const FileTable& table) { return ApplyImport(Plan(table), form.flexDetail); }

  ImportRules rules;
};

constexpr const char* kWritten = "نوشته مي\u200cشود";

TEST_F(CountImportTest, Titles_are_recognised_in_any_spelling) {
  const ImportColumns columns = FindColumns(
      TableOf({{" کد  میله‌ای ", "کد كالا", "شمارش ۱", "شمارش_دوم", "Third Count", "مورد قبول:"}}));
  EXPECT_EQ(columns, (ImportColumns{1, 0, 1, {2, 3, 4, 5}}));
}

TEST_F(CountImportTest, The_titles_of_the_grid_are_recognised) {
  FileTable table;
  auto& titles = table.rows.emplace_back(FileTable::Row{1, {}}).cells;
  for (int col = 0; col < kLineColumns; ++col) titles.emplace_back(form.flexDetail.TextMatrix(0, col));
  EXPECT_EQ(FindColumns(table), (ImportColumns{1,
                                               LineColumn::Barcode,
                                               LineColumn::GoodCode,
                                               {LineColumn::FirstCounting, LineColumn::SecondCounting,
                                                LineColumn::ThirdCounting, LineColumn::AcceptedCounting}}));
}

TEST_F(CountImportTest, Titles_may_be_below_a_heading) {
  const ImportColumns columns =
      FindColumns(TableOf({{"شمارش پایان سال"}, {}, {"نام", "باركد", "تعداد"}, {"a", "4001", "3"}}));
  EXPECT_EQ(columns, (ImportColumns{3, 1, ImportColumns::kNone, {2, -1, -1, -1}}));
}

TEST_F(CountImportTest, A_table_without_known_titles_begins_with_its_first_numbers) {
  EXPECT_EQ(FindColumns(TableOf({{"4001", "5"}})).firstRow, 0U);
  EXPECT_EQ(FindColumns(TableOf({{"a", "b"}, {"4001", "5"}})).firstRow, 1U);
  EXPECT_EQ(FindColumns(TableOf({})).firstRow, 0U);
}

TEST_F(CountImportTest, Columns_are_named_by_their_titles_and_otherwise_by_letters) {
  EXPECT_EQ(ColumnNames(TableOf({{"كد\n", "", "n", "n"}, {"1", "2", "3", "4", "5"}}), 1),
            (Texts{"كد", "ستون B", "n (C)", "n (D)", "ستون E"}));
}

TEST_F(CountImportTest, A_barcode_decides_the_line_with_any_letters_and_digits) {
  EXPECT_EQ(Planned(TableOf({{"باركد", "تعداد"}, {" ۴۰۰۲ ", "۱۲/۵"}, {"ab-7", "٣"}})),
            (Texts{std::string("2: 2, 6, 12.5, ") + kWritten, std::string("3: 3, 6, 3, ") + kWritten}));
}

TEST_F(CountImportTest, A_code_decides_the_line_where_the_barcode_is_empty) {
  EXPECT_EQ(Planned(TableOf({{"باركد", "كد", "تعداد"}, {"", "C2", "5"}, {"4001", "c3", "6"}})),
            (Texts{std::string("2: 2, 6, 5, ") + kWritten, std::string("3: 1, 6, 6, ") + kWritten}));
}

TEST_F(CountImportTest, Each_problem_is_named_with_the_row_of_the_file) {
  form.Set(1, LineColumn::FirstCounting, "9");
  const int twin = form.AddLine("4009");
  form.Set(twin, LineColumn::GoodCode, "c2");
  EXPECT_EQ(Planned(TableOf({{"باركد", "كد", "تعداد"},
                             {"4444", "", "1"},
                             {"", "", "2"},
                             {"4002", "", "x"},
                             {"AB-7", "", "-3"},
                             {"4001", "", "4"},
                             {"", "c2", "5"}})),
            (Texts{"2: 0, 6, , هيچ سطري اين باركد يا كد را ندارد", "3: 0, 6, , باركد و كد ندارد",
                   "4: 2, 6, , عدد نيست", "5: 3, 6, , پذيرفته نمي\u200cشود: عدد منفي است",
                   "6: 1, 6, , سطر شمارش دارد و دست نمي\u200cخورد",
                   "7: 0, 6, , چند سطر اين باركد يا كد را دارند"}));
}

TEST_F(CountImportTest, A_row_without_a_figure_is_left_out) {
  EXPECT_EQ(Planned(TableOf({{"باركد", "تعداد"}, {"4001"}, {"4444", " "}, {"4002", "0"}})),
            Texts{std::string("4: 2, 6, 0, ") + kWritten});
}

TEST_F(CountImportTest, Figures_for_one_cell_are_refused_or_summed) {
  const FileTable table =
      TableOf({{"باركد", "تعداد"}, {"4001", "0.1"}, {"4002", "7"}, {"4001", "0.2"}, {"۴۰۰۱", "3"}});
  const std::string twice = "در پرونده تكراري است";
  EXPECT_EQ(Planned(table), (Texts{"2: 1, 6, , " + twice, std::string("3: 2, 6, 7, ") + kWritten,
                                   "4: 1, 6, , " + twice, "5: 1, 6, , " + twice}));
  rules.repeated = ImportRules::Repeated::Sum;
  const std::string summed = "با سطر 2 پرونده جمع شد";
  EXPECT_EQ(Planned(table),
            (Texts{std::string("2: 1, 6, 3.3, ") + kWritten, std::string("3: 2, 6, 7, ") + kWritten,
                   "4: 1, 6, , " + summed, "5: 1, 6, , " + summed}));
}

TEST_F(CountImportTest, A_sum_with_a_text_that_is_no_number_does_not_come_in) {
  rules.repeated = ImportRules::Repeated::Sum;
  EXPECT_EQ(Planned(TableOf({{"باركد", "تعداد"}, {"4001", "1"}, {"4001", "2?"}})),
            (Texts{"2: 1, 6, , در پرونده تكراري است", "3: 1, 6, , عدد نيست"}));
}

TEST_F(CountImportTest, A_count_in_the_grid_stays_is_replaced_or_is_added_to) {
  form.Set(1, LineColumn::FirstCounting, "9.5");
  form.Set(2, LineColumn::FirstCounting, "4");
  const FileTable table = TableOf({{"باركد", "تعداد"}, {"4001", "1"}, {"4002", "4.0"}});
  const std::string same = "3: 2, 6, , همين عدد در سطر هست";
  EXPECT_EQ(Planned(table), (Texts{"2: 1, 6, , سطر شمارش دارد و دست نمي\u200cخورد", same}));
  rules.counted = ImportRules::Counted::Replace;
  EXPECT_EQ(Planned(table), (Texts{"2: 1, 6, 1, جاي عدد پيشين را مي\u200cگيرد", same}));
  rules.counted = ImportRules::Counted::Add;
  EXPECT_EQ(Planned(table), (Texts{"2: 1, 6, 10.5, جاي عدد پيشين را مي\u200cگيرد",
                                   "3: 2, 6, 8, جاي عدد پيشين را مي\u200cگيرد"}));
}

TEST_F(CountImportTest, Lines_with_the_same_barcode_take_their_rows_in_order) {
  form.AddLine("4001");
  EXPECT_EQ(Planned(TableOf({{"باركد", "تعداد"}, {"4001", "1"}, {"4001", "2"}})),
            (Texts{std::string("2: 1, 6, 1, ") + kWritten, std::string("3: 4, 6, 2, ") + kWritten}));
  EXPECT_EQ(Planned(TableOf({{"باركد", "تعداد"}, {"4001", "1"}})),
            Texts{"2: 0, 6, , چند سطر اين باركد يا كد را دارند"});
}

TEST_F(CountImportTest, A_barcode_that_is_written_the_same_is_preferred) {
  form.AddLine("ab-7");
  EXPECT_EQ(Planned(TableOf({{"باركد", "تعداد"}, {"ab-7", "1"}})),
            Texts{std::string("2: 4, 6, 1, ") + kWritten});
}

TEST_F(CountImportTest, Columns_that_are_not_typed_into_take_nothing) {
  form.flexDetail.SetEditMask("00000001110001000");
  EXPECT_EQ(Planned(TableOf({{"باركد", "شمارش اول", "شمارش دوم"}, {"4001", "1", "2"}})),
            Texts{std::string("2: 1, 7, 2, ") + kWritten});
}

TEST_F(CountImportTest, A_count_of_more_than_a_thousand_million_comes_in_with_the_warning_of_the_form) {
  const ImportOutcome outcome = Apply(TableOf({{"باركد", "تعداد"}, {"4001", "1000000001"}, {"4002", "2e9"}}));
  EXPECT_EQ(outcome.stored, 2);
  EXPECT_EQ(form.Cell(1, LineColumn::FirstCounting), "1000000001");
  EXPECT_EQ(NewTitledMessages(), Texts{"خطا: تعداد بيشتر از اندازة مجاز است."});
}

TEST_F(CountImportTest, Accepted_counts_calculate_their_lines_and_the_sums) {
  form.Set(1, LineColumn::SystemCounting, "10");
  form.Set(1, LineColumn::Rate, "3");
  Apply(TableOf({{"باركد", "مورد قبول"}, {"4001", "12"}}));
  EXPECT_EQ(form.Cell(1, LineColumn::Surplus), "2");
  EXPECT_EQ(form.txtTotalAboveValue.Text(), "6");
  EXPECT_EQ(form.txtTotalValue.Text(), "36");
}

TEST_F(CountImportTest, The_current_cell_stays) {
  form.flexDetail.SetCurrent(2, LineColumn::GoodName);
  Apply(TableOf({{"باركد", "تعداد"}, {"AB-7", "12"}}));
  EXPECT_EQ(form.flexDetail.Row(), 2);
  EXPECT_EQ(form.flexDetail.Col(), LineColumn::GoodName);
}

TEST_F(CountImportTest, A_line_that_has_changed_since_the_preview_is_not_filled) {
  const auto plan = Plan(TableOf({{"باركد", "تعداد"}, {"4001", "1"}, {"AB-7", "2"}}));
  form.flexDetail.RemoveItem(1);
  const ImportOutcome outcome = ApplyImport(plan, form.flexDetail);
  EXPECT_EQ(outcome.stored, 0);
  EXPECT_EQ(outcome.refused, 2);
  EXPECT_EQ(form.Column(LineColumn::FirstCounting), (Texts{"", ""}));
}

TEST_F(CountImportTest, A_locked_grid_takes_nothing) {
  const auto plan = Plan(TableOf({{"باركد", "تعداد"}, {"4001", "1"}}));
  form.flexDetail.SetLocked(true);
  EXPECT_EQ(ApplyImport(plan, form.flexDetail).refused, 1);
  EXPECT_EQ(form.Cell(1, LineColumn::FirstCounting), "");
}

}  // namespace
}  // namespace koru
