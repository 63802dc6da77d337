#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace koru {

/// The texts of a file with rows and columns: a sheet of a workbook, or a file of separated texts.
struct FileTable {
  struct Row {
    int number = 0;  ///< in the file, from 1
    std::vector<std::string> cells;
  };
  /// The rows that have a text, in the order of the file. They differ in length; a cell that a row lacks is
  /// empty. Numbers have the digits 0-9 and a point, however the file writes them.
  std::vector<Row> rows;
  std::vector<std::string> sheets;  ///< the names of a workbook's sheets; empty for other files
  std::size_t sheet = 0;            ///< the sheet that was read
};

/// The files of tables that the user has.
class TableFiles {
 public:
  /// Called now and then with the share that has been read, 0 to 1000; false cancels the reading.
  using Progress = std::function<bool(int permille)>;

  virtual ~TableFiles() = default;
  /// Lets the user choose a file; empty if the user cancels. The path is UTF-8.
  [[nodiscard]] virtual std::string Choose() = 0;
  /// Reads one sheet of the file, from 0; other files have sheet 0 alone. Nothing if `progress` cancels.
  /// Throws InputError with a sentence for the user that names the file.
  [[nodiscard]] virtual std::optional<FileTable> Read(const std::string& path, std::size_t sheet,
                                                      const Progress& progress) = 0;
};

}  // namespace koru
