#pragma once

#include <span>
#include <string_view>

namespace koru {

/// A report file that comes with the program.
struct BuiltInReport {
  std::string_view path;  ///< as tblPelinReportTemplate keeps it, below the suite's base folder
  std::string_view text;
};

[[nodiscard]] std::span<const BuiltInReport> BuiltInReports();

/// The text of the program's own report whose path `fileName` ends in, as a whole part of it; empty when
/// there is none.
[[nodiscard]] std::string_view FindBuiltInReport(std::string_view fileName);

}  // namespace koru
