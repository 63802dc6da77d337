#pragma once

#include <span>
#include <string_view>

namespace koru {

/// A report file that is built into the program.
struct BuiltInReport {
  std::string_view path;  ///< as in tblPelinReportTemplate, relative to the suite's base folder
  std::string_view text;
};

[[nodiscard]] std::span<const BuiltInReport> BuiltInReports();

/// The text of the built-in report of that path; empty if there is none.
[[nodiscard]] std::string_view FindBuiltInReport(std::string_view path);

}  // namespace koru
