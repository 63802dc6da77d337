#pragma once

#include <functional>
#include <string>

#include "platform/ports/HostServices.h"
#include "platform/ports/Spreadsheet.h"

namespace koru {

/// The location of new workbooks and the host functions that show them.
struct XlsxPlace {
  /// The folder for new workbooks, UTF-8; created if missing.
  std::string folder;
  /// Opens a file with the user's spreadsheet program; false if there is none. May be empty, which means the
  /// same.
  std::function<bool(const std::string& path)> open;
  /// Shows the user one sentence; called when texts were cut and when a finished workbook could not be
  /// opened. May be empty.
  std::function<void(const std::string& sentence)> showMessage;
};

/// Writes workbooks (.xlsx) instead of running a spreadsheet program. Each workbook is a new file named after
/// the date (`شمارش-1404-10-01-1.xlsx`, then -2 and so on); existing files are never overwritten.
class XlsxStarter : public SpreadsheetStarter {
 public:
  /// `clock` must outlive the starter and its workbooks.
  XlsxStarter(XlsxPlace place, const Clock& clock) : place_(std::move(place)), clock_(clock) {}

  /// Cells may be set in any order, up to row 1,048,576 and column 16,384; a cell beyond throws
  /// std::out_of_range. A text longer than a cell holds, 32,767 UTF-16 units, is cut; the user is shown
  /// which. LeaveOpen writes the file and throws InputError when that fails.
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override;

 private:
  XlsxPlace place_;
  const Clock& clock_;
};

}  // namespace koru
