#pragma once

#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/ports/Spreadsheet.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdExcel: copies the line grid into a new workbook and leaves the workbook open for the user.
class ExcelExport {
 public:
  /// Both must outlive the command.
  ExcelExport(InvCountingControls& controls, SharedState& shared) : controls_(controls), shared_(shared) {}

  /// Copies every cell as text, the header row and hidden columns included: the cell of row r and column c to
  /// the sheet's row r + 1 and column c + 1. A grid without lines starts no spreadsheet program. What the
  /// program throws reaches the caller. Returns the file of the workbook; empty if there is none.
  ///
  /// `areStored`: whether the lines are those in the database; if not, the workbook says so.
  std::string Run(bool areStored = true);

 private:
  void Copy(Spreadsheet& sheet);

  InvCountingControls& controls_;
  SharedState& shared_;
};

}  // namespace koru
