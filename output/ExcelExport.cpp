#include "output/ExcelExport.h"

#include <memory>

#include "services/ShownProgress.h"

namespace koru {

void ExcelExport::Run() {
  if (flexDetail_.Rows() < 2) return;
  const Hourglass busy(screen_);
  const std::unique_ptr<Spreadsheet> sheet = spreadsheets_.NewWorkbook();
  Copy(*sheet);
  sheet->LeaveOpen();
}

void ExcelExport::Copy(Spreadsheet& sheet) {
  const int rows = flexDetail_.Rows();
  ShownProgress progress(pgbStatus_, rows);
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < flexDetail_.Cols(); ++col) {
      sheet.SetCell(row + 1, col + 1, flexDetail_.TextMatrix(row, col));
    }
    progress.Step();
  }
}

}  // namespace koru
