#include "output/ExcelExport.h"

#include <memory>

#include "services/ShownProgress.h"

namespace koru {

std::string ExcelExport::Run(bool areStored) {
  if (controls_.flexDetail.Rows() < 2) return {};
  const Hourglass busy(shared_.services.screen);
  const std::unique_ptr<Spreadsheet> sheet = shared_.services.spreadsheets.NewWorkbook();
  Copy(*sheet);
  if (!areStored) sheet->MarkAsUnsaved();
  sheet->LeaveOpen();
  return sheet->File();
}

void ExcelExport::Copy(Spreadsheet& sheet) {
  const Grid& lines = controls_.flexDetail;
  const int rows = lines.Rows();
  ShownProgress progress(controls_.pgbStatus, rows);
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < lines.Cols(); ++col) sheet.SetCell(row + 1, col + 1, lines.TextMatrix(row, col));
    progress.Step();
  }
}

}  // namespace koru
