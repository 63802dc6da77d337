#include "benchmarks/WorkbookByHand.h"

#include <xlsxwriter.h>

#include <stdexcept>

namespace koru::bench {

std::vector<std::vector<std::string>> TextsOf(const Grid& grid) {
  std::vector<std::vector<std::string>> texts(static_cast<std::size_t>(grid.Rows()));
  for (int row = 0; row < grid.Rows(); ++row) {
    for (int col = 0; col < grid.Cols(); ++col)
      texts[static_cast<std::size_t>(row)].emplace_back(grid.TextMatrix(row, col));
  }
  return texts;
}

void WriteWorkbookByHand(const std::string& path, const std::vector<std::vector<std::string>>& texts) {
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* const book = workbook_new_opt(path.c_str(), &options);
  lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
  for (std::size_t row = 0; row < texts.size(); ++row) {
    for (std::size_t col = 0; col < texts[row].size(); ++col) {
      if (texts[row][col].empty()) continue;
      worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(col),
                             texts[row][col].c_str(), nullptr);
    }
  }
  if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("the workbook was not written: " + path);
}

}  // namespace koru::bench
