#pragma once

#include <map>
#include <string>
#include <utility>

namespace koru::test {

/// A cell as a spreadsheet program would take it.
struct ReadCell {
  std::string text;
  bool isText = false;  ///< false: the program would take it for a number, a formula or a blank
  bool bold = false;
};

/// The one sheet of a workbook file, read by unpacking the file and reading its XML; knows nothing of the
/// program that wrote it.
struct ReadSheet {
  std::string name;
  bool rightToLeft = false;
  int frozenRows = 0;
  std::map<std::pair<int, int>, ReadCell> cells;  ///< by row and column, counted from 1
  std::map<int, double> widths;                   ///< of columns, in characters

  [[nodiscard]] std::string Text(int row, int col) const;
};

/// Throws std::runtime_error when the file is no readable workbook.
[[nodiscard]] ReadSheet ReadWorkbook(const std::string& path);

}  // namespace koru::test
