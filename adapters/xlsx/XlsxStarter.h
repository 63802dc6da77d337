#pragma once

#include <functional>
#include <string>

#include "platform/ports/HostServices.h"
#include "platform/ports/Spreadsheet.h"

namespace koru {

/// Where new workbooks go and how a person gets to see them.
struct XlsxPlace {
  /// The folder of new workbooks, UTF-8; it is made when it is not there.
  std::string folder;
  /// Opens a file with the person's own program; false when there is none. May be empty: there is none.
  std::function<bool(const std::string& path)> open;
  /// Tells the person one sentence; called when a finished workbook could not be opened. May be empty.
  std::function<void(const std::string& sentence)> tell;
};

/// Writes workbooks (.xlsx) in place of running a spreadsheet program. Each new workbook is a file of its
/// own, named after the day (`شمارش-1404-10-01-1.xlsx`, then -2 and so on); a file that exists is never
/// written over.
class XlsxStarter : public SpreadsheetStarter {
 public:
  /// `clock` must outlive the starter and its workbooks.
  XlsxStarter(XlsxPlace place, const Clock& clock) : place_(std::move(place)), clock_(clock) {}

  /// Cells may be set in any order, up to row 1,048,576 and column 16,384; a place beyond throws
  /// std::out_of_range. The file is written by LeaveOpen, which throws InputError when the workbook cannot be
  /// written.
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override;

 private:
  XlsxPlace place_;
  const Clock& clock_;
};

}  // namespace koru
