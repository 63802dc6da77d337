#pragma once

#include <span>
#include <string>
#include <string_view>

namespace koru {

/// A report file that comes with the program.
struct BuiltInReport {
  std::string_view path;  ///< as tblPelinReportTemplate keeps it, below the suite's base folder
  std::string_view text;
};

[[nodiscard]] std::span<const BuiltInReport> BuiltInReports();

/// Puts the program's report files below `baseFolder` (UTF-8), where the paths that the suite keeps look for
/// them. A file that is there already is left as it is: somebody may have changed it. Throws InputError
/// naming the file that cannot be written.
void WriteBuiltInReports(const std::string& baseFolder);

}  // namespace koru
