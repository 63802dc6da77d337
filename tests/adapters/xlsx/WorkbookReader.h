#pragma once

#include <map>
#include <string>
#include <utility>

namespace koru::test {

/// A cell as a spreadsheet program reads it.
struct ReadCell {
  std::string text;
  bool isText = false;  ///< false: the program reads a number, a formula or a blank
  bool bold = false;
};

/// The only sheet of a workbook file, read by unpacking and parsing its XML; independent of the library that
/// wrote it.
struct ReadSheet {
  std::string name;
  bool rightToLeft = false;
  int frozenRows = 0;
  std::map<std::pair<int, int>, ReadCell> cells;  ///< by one-based row and column
  std::map<int, double> widths;                   ///< of columns, in characters

  [[nodiscard]] std::string Text(int row, int col) const;
};

/// Throws std::runtime_error when the file is not a readable workbook.
[[nodiscard]] ReadSheet ReadWorkbook(const std::string& path);

}  // namespace koru::test
