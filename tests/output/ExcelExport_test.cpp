#include "output/ExcelExport.h"

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "platform/text/Errors.h"
#include "services/SharedState.h"
#include "tests/support/BareCountingForm.h"
#include "tests/support/ComponentFixture.h"

namespace koru {
namespace {

/// A spreadsheet program that remembers what it was given; the cells by row and column.
struct Desk {
  int started = 0;
  int leftOpen = 0;
  bool missing = false;
  bool full = false;
  bool markedAsUnsaved = false;
  std::map<std::pair<int, int>, std::string> cells;
};

class RememberingSheet : public Spreadsheet {
 public:
  explicit RememberingSheet(Desk& desk) : desk_(desk) {}
  void SetCell(int row, int col, std::string_view text) override { desk_.cells[{row, col}] = text; }
  void MarkAsUnsaved() override { desk_.markedAsUnsaved = true; }
  void LeaveOpen() override {
    if (desk_.full) throw InputError("no room for the workbook");
    ++desk_.leftOpen;
  }
  [[nodiscard]] std::string File() const override { return "/a.xlsx"; }

 private:
  Desk& desk_;
};

class RememberingStarter : public SpreadsheetStarter {
 public:
  explicit RememberingStarter(Desk& desk) : desk_(desk) {}
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override {
    if (desk_.missing) throw InputError("no spreadsheet program");
    ++desk_.started;
    return std::make_unique<RememberingSheet>(desk_);
  }

 private:
  Desk& desk_;
};

class ExportingTheGrid : public ::testing::Test, protected test::NoDatabaseFixture {
 protected:
  ExportingTheGrid() {
    form.flexDetail.SetCols(3);
    form.flexDetail.SetFormatString("   رديف|^كد              |^نام");
    form.flexDetail.SetColWidth(1, 0);
  }

  Desk desk;
  RememberingStarter starter{desk};
  SharedState shared{{.databases = recording,
                      .components = components,
                      .screen = screen,
                      .clock = clock,
                      .files = files,
                      .spreadsheets = starter}};
  test::BareCountingForm form{screen};
  ExcelExport excel{form, shared};
};

TEST_F(ExportingTheGrid, A_grid_without_lines_starts_no_spreadsheet_program) {
  desk.missing = true;
  EXPECT_NO_THROW(excel.Run());
  EXPECT_EQ(desk.started, 0);
  EXPECT_TRUE(screen.Cursors().empty());
}

TEST_F(ExportingTheGrid, Header_and_lines_go_over_cell_by_cell_with_hidden_columns) {
  form.flexDetail.AddItem("1");
  form.flexDetail.SetTextMatrix(1, 1, "007");
  form.flexDetail.SetTextMatrix(1, 2, "=SUM(A1)");
  form.flexDetail.AddItem("2");
  excel.Run();
  const std::map<std::pair<int, int>, std::string> expected = {
      {{1, 1}, "   رديف"}, {{1, 2}, "كد              "}, {{1, 3}, "نام"}, {{2, 1}, "1"},
      {{2, 2}, "007"},     {{2, 3}, "=SUM(A1)"},         {{3, 1}, "2"},   {{3, 2}, ""},
      {{3, 3}, ""}};
  EXPECT_EQ(desk.cells, expected);
  EXPECT_EQ(desk.started, 1);
  EXPECT_EQ(desk.leftOpen, 1);
}

TEST_F(ExportingTheGrid, A_workbook_of_lines_that_are_not_stored_says_so) {
  form.flexDetail.AddItem("1");
  excel.Run(true);
  EXPECT_FALSE(desk.markedAsUnsaved);
  excel.Run(false);
  EXPECT_TRUE(desk.markedAsUnsaved);
}

TEST_F(ExportingTheGrid, A_long_export_shows_how_far_it_is_and_the_hourglass) {
  form.flexDetail.SetRows(1001);
  std::vector<int> steps;
  const Subscription watching = form.pgbStatus.StateChanged.Subscribe([&] {
    if (!form.pgbStatus.Visible()) return;
    EXPECT_EQ(screen.CurrentCursor(), Cursor::Hourglass);
    steps.push_back(form.pgbStatus.Value());
  });
  excel.Run();
  EXPECT_EQ(form.pgbStatus.Max(), 1001);
  ASSERT_GE(steps.size(), 1001U) << "every row moves the bar";
  EXPECT_EQ(steps.back(), 1001);
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

TEST_F(ExportingTheGrid, A_missing_program_or_a_full_disk_is_thrown_to_the_caller) {
  form.flexDetail.AddItem("1");
  desk.missing = true;
  EXPECT_THROW(excel.Run(), InputError);
  desk.missing = false;
  desk.full = true;
  EXPECT_THROW(excel.Run(), InputError);
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

}  // namespace
}  // namespace koru
