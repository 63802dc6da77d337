#include "documents/ExcelExport.h"

#include <algorithm>
#include <memory>

namespace koru {
namespace {

/// A progress bar for as long as it lives.
class ShownBar {
 public:
  explicit ShownBar(ProgressBar& bar, int steps) : bar_(bar) {
    bar_.SetMax(steps);
    bar_.SetValue(0);
    bar_.SetVisible(true);
  }
  ShownBar(const ShownBar&) = delete;
  ShownBar& operator=(const ShownBar&) = delete;
  ~ShownBar() { bar_.SetVisible(false); }

 private:
  ProgressBar& bar_;
};

}  // namespace

void ExcelExport::Run() {
  if (flexDetail_.Rows() < 2) return;
  const Hourglass busy(screen_);
  const std::unique_ptr<Spreadsheet> sheet = spreadsheets_.NewWorkbook();
  Copy(*sheet);
  sheet->LeaveOpen();
}

void ExcelExport::Copy(Spreadsheet& sheet) {
  const int rows = flexDetail_.Rows();
  const ShownBar progress(pgbStatus_, rows);
  const int step = std::max(1, rows / 100);  // a bar is repainted at every change
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < flexDetail_.Cols(); ++col) {
      sheet.SetCell(row + 1, col + 1, flexDetail_.TextMatrix(row, col));
    }
    if ((row + 1) % step == 0) pgbStatus_.SetValue(row + 1);
  }
}

}  // namespace koru
