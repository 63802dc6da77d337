#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace koru {

/// A running spreadsheet program with one new workbook.
class Spreadsheet {
 public:
  virtual ~Spreadsheet() = default;
  /// Writes a text into the active sheet; rows and columns are one-based. Cells may be written in any order;
  /// row by row is fastest.
  virtual void SetCell(int row, int col, std::string_view text) = 0;
  /// The texts are not stored in the database: the workbook says so in its name and in that of its sheet. To
  /// be called before LeaveOpen. A program that cannot show it does nothing.
  virtual void MarkAsUnsaved() {}
  /// Leaves the workbook open for the user. Throws InputError with the file's name when it could not be
  /// written; no partial file remains.
  virtual void LeaveOpen() = 0;
  /// The file that LeaveOpen has left open, UTF-8; empty if the program keeps the workbook in none.
  [[nodiscard]] virtual std::string File() const { return {}; }
};

/// Starts spreadsheet programs. NewWorkbook throws InputError when there is none.
class SpreadsheetStarter {
 public:
  virtual ~SpreadsheetStarter() = default;
  [[nodiscard]] virtual std::unique_ptr<Spreadsheet> NewWorkbook() = 0;
};

}  // namespace koru
