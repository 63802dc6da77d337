#pragma once

#include "platform/controls/Grid.h"
#include "platform/controls/ProgressBar.h"
#include "platform/ports/Screen.h"
#include "platform/ports/Spreadsheet.h"

namespace koru {

/// The command cmdExcel: copies the grid into a new workbook, which is left open for the person.
class ExcelExport {
 public:
  /// All must outlive the command.
  ExcelExport(const Grid& flexDetail, ProgressBar& pgbStatus, Screen& screen,
              SpreadsheetStarter& spreadsheets)
      : flexDetail_(flexDetail), pgbStatus_(pgbStatus), screen_(screen), spreadsheets_(spreadsheets) {}

  /// Every cell goes over as text, the header row and hidden columns included: the cell of row r and column c
  /// to the sheet's row r + 1 and column c + 1. A grid without lines starts no spreadsheet program. What the
  /// program throws goes to the caller.
  void Run();

 private:
  void Copy(Spreadsheet& sheet);

  const Grid& flexDetail_;
  ProgressBar& pgbStatus_;
  Screen& screen_;
  SpreadsheetStarter& spreadsheets_;
};

}  // namespace koru
