#include <gtest/gtest.h>
#include <xlsxwriter.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "adapters/sheet/TableFile.h"
#include "adapters/xlsx/XlsxStarter.h"
#include "lines/ImportCounts.h"
#include "lines/frmCountImport.h"
#include "output/ExcelExport.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "tests/lines/LineForm.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

/// A figure that somebody fills in, as it is typed.
struct Figure {
  int line = 0;
  int col = 0;
  std::string text;
};

std::string InDigits(const std::string& text, char32_t zero) {
  std::string other;
  for (const char c : text)
    AppendCharacter(other,
                    c >= '0' && c <= '9' ? zero + static_cast<char32_t>(c - '0') : static_cast<char32_t>(c));
  return other;
}

/// The user of one file.
class ThisFile : public TableFiles {
 public:
  explicit ThisFile(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::string Choose() override { return path_; }
  [[nodiscard]] std::optional<FileTable> Read(const std::string& path, std::size_t sheet,
                                              const Progress& progress) override {
    return ReadTableFile(path, sheet, progress);
  }

 private:
  std::string path_;
};

class FilledSheets : public ::testing::Test, protected NoDatabaseFixture {
 protected:
  int Up(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  void FillLines(LineForm& form, unsigned seed) {
    std::mt19937 stock(seed);
    const auto up = [&](int most) { return std::uniform_int_distribution<int>(0, most)(stock); };
    const int lines = 1 + up(30);
    for (int i = 0; i < lines; ++i) {
      const int row = form.AddLine("62600" + std::to_string(1000 + i * 7) + (up(3) == 0 ? "-ك" : ""));
      form.Set(row, LineColumn::RowNumber, std::to_string(row));
      form.Set(row, LineColumn::GoodName, "كالاي \"" + std::to_string(up(99)) + "\", بزرگ");
      form.Set(row, LineColumn::SystemCounting, NumberText(up(9999) / 10.0));
      form.Set(row, LineColumn::Rate, std::to_string(up(99999)));
    }
    form.lines.UpdateTotalQty();  // as after loading
  }

  std::vector<Figure> RandomFigures(const LineForm& form) {
    std::vector<Figure> figures;
    for (int row = 1; row < form.flexDetail.Rows(); ++row) {
      for (int col = LineColumn::FirstCounting; col <= LineColumn::AcceptedCounting; ++col) {
        if (Up(2) > 0) figures.push_back({row, col, NumberText(Up(9'999'999) / (Up(1) == 0 ? 1.0 : 1000.0))});
      }
    }
    return figures;
  }

  /// The exported rows with the figures, written by another tool: in another order, the figures as numbers or
  /// as texts in any digits.
  void WriteFilled(const std::string& path, const FileTable& exported, const std::vector<Figure>& figures) {
    lxw_workbook* const book = workbook_new(path.c_str());
    lxw_worksheet* const sheet = workbook_add_worksheet(book, "counts");
    std::vector<std::size_t> order(exported.rows.size());
    std::iota(order.begin(), order.end(), 0U);
    std::shuffle(order.begin() + 1, order.end(), random);
    std::vector<lxw_row_t> placeOf(order.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
      placeOf[order[place]] = static_cast<lxw_row_t>(place);
      const auto& cells = exported.rows[order[place]].cells;
      for (std::size_t col = 0; col < cells.size(); ++col)
        worksheet_write_string(sheet, placeOf[order[place]], static_cast<lxw_col_t>(col), cells[col].c_str(),
                               nullptr);
    }
    for (const Figure& figure : figures) {
      const lxw_row_t row = placeOf[static_cast<std::size_t>(figure.line)];
      const auto col = static_cast<lxw_col_t>(figure.col);
      const int kind = Up(3);
      if (kind == 0) {
        worksheet_write_number(sheet, row, col, Val(figure.text), nullptr);
      } else {
        const char32_t zero = kind == 1 ? U'0' : (kind == 2 ? U'\u06F0' : U'\u0660');
        worksheet_write_string(sheet, row, col, InDigits(figure.text, zero).c_str(), nullptr);
      }
    }
    ASSERT_EQ(workbook_close(book), LXW_NO_ERROR);
  }

  std::string Export(LineForm& form) {
    XlsxStarter starter({folder.File("out"), {}, {}}, clock);
    HostServices services = Services();
    SharedState exporting{HostServices{services.databases, services.components, services.screen,
                                       services.clock, services.files, starter}};
    return ExcelExport(form, exporting).Run();
  }

  std::mt19937 random;
  TemporaryFolder folder;
};

TEST_F(FilledSheets, Two_hundred_filled_sheets_are_the_countings_that_are_typed) {
  screen.OnModal = [](Form& shown) { dynamic_cast<frmCountImport&>(shown).cmdImport.UserClick(); };
  std::size_t figuresInAll = 0;
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    random.seed(seed);
    SharedState shared{Services()};
    LineForm imported(shared);
    LineForm typed(shared);
    FillLines(imported, seed);
    FillLines(typed, seed);
    const std::vector<Figure> figures = RandomFigures(typed);
    figuresInAll += figures.size();
    const auto exported = ReadTableFile(Export(imported), 0, [](int) { return true; });
    ThisFile filled(folder.File("filled.xlsx"));
    WriteFilled(filled.Choose(), *exported, figures);
    shared.services.tables = &filled;
    ImportCounts(imported, shared).Run();
    for (const Figure& figure : figures)
      ASSERT_TRUE(typed.flexDetail.UserEdit(figure.line, figure.col, figure.text));
    for (int row = 1; row < typed.flexDetail.Rows(); ++row) ASSERT_EQ(imported.Row(row), typed.Row(row));
    for (const auto total : {&InvCountingControls::txtTotalBelowValue,
                             &InvCountingControls::txtTotalAboveValue, &InvCountingControls::txtTotalValue}) {
      ASSERT_EQ((imported.*total).Text(), (typed.*total).Text());
    }
  }
  EXPECT_GT(figuresInAll, 5000U);
  EXPECT_EQ(NewMessages(), Texts{});
}

}  // namespace
}  // namespace koru::test
