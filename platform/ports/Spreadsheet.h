#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace koru {

/// A running spreadsheet program with one new workbook.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  /// Writes a text into the active sheet; rows and columns are counted from 1. Cells may come in any order;
  /// row by row is fastest.
  virtual void SetCell(int row, int col, std::string_view text) = 0;
  /// Leaves the workbook open for the person. Throws InputError naming the file when it could not be written;
  /// then no half file is left.
  virtual void LeaveOpen() = 0;
};

/// Starts a spreadsheet program; throws InputError when there is none.
class SpreadsheetStarter {
 public:
  virtual ~SpreadsheetStarter() = default;
  [[nodiscard]] virtual std::unique_ptr<Spreadsheet> NewWorkbook() = 0;
};

}  // namespace koru
