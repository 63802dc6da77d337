#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "adapters/xlsx/XlsxStarter.h"
#include "output/ExcelExport.h"
#include "tests/adapters/xlsx/WorkbookReader.h"
#include "tests/lines/LineForm.h"
#include "tests/support/ComponentFixture.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

/// Names and codes that a file format could misinterpret.
constexpr std::array<const char*, 8> kHard = {"<b>&\"'",      "=SUM(A1)",      "007",   "ي ك ی ک ۱۲",
                                              "ميله\u200Cاي", "\u00A0x\u00A0", "  x  ", "😀\n]]>"};

TEST(ExportedGrid, Of_a_full_counting_is_read_back_cell_by_cell_as_the_grid_shows_it) {
  NoDatabaseFixture host;
  const TemporaryFolder folder;
  const FixedClock clock{Date{std::chrono::year{2025} / 12 / 22}};
  Texts opened;
  XlsxStarter starter({folder.File("documents"),
                       [&opened](const std::string& path) {
                         opened.push_back(path);
                         return true;
                       },
                       [](const std::string& /*sentence*/) {}},
                      clock);
  SharedState shared({.databases = host.recording,
                      .components = host.components,
                      .screen = host.screen,
                      .clock = host.clock,
                      .files = host.files,
                      .spreadsheets = starter});
  LineForm form(shared);
  {
    const GridRedrawOff redrawOff(form.flexDetail);
    for (int line = 1; line <= kMaxLines; ++line) {
      const int row = form.AddLine("62600" + std::to_string(line));
      const std::string hard = kHard.at(static_cast<std::size_t>(line) % kHard.size());
      form.Set(row, LineColumn::RowNumber, std::to_string(row));
      form.Set(row, LineColumn::GoodCode, hard);
      form.Set(row, LineColumn::GoodName, hard + std::to_string(line));
      for (int col = LineColumn::FirstCounting; col <= LineColumn::CountedAmount; col += 1 + line % 3) {
        form.Set(row, col, std::to_string(line * col) + ".5");
      }
    }
  }
  ExcelExport(form, shared).Run();

  ASSERT_EQ(opened.size(), 1U);
  const ReadSheet sheet = ReadWorkbook(opened[0]);
  int filled = 0;
  for (int row = 0; row <= kMaxLines; ++row) {
    for (int col = 0; col < kLineColumns; ++col) {
      const std::string shown = form.Cell(row, col);
      ASSERT_EQ(sheet.Text(row + 1, col + 1), shown) << row << "," << col;
      if (shown.empty()) continue;
      ++filled;
      ASSERT_TRUE(sheet.cells.at({row + 1, col + 1}).isText) << row << "," << col;
    }
  }
  EXPECT_GT(filled, 8 * kMaxLines);
  EXPECT_EQ(sheet.Text(1, 10), "شمارش مورد قبول  \u00A0");
}

}  // namespace
}  // namespace koru::test
