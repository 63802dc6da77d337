#include "reports/BuiltInReports.h"

namespace koru {

std::string_view FindBuiltInReport(std::string_view fileName) {
  for (const BuiltInReport& report : BuiltInReports()) {
    if (!fileName.ends_with(report.path)) continue;
    const std::size_t before = fileName.size() - report.path.size();
    if (before == 0 || fileName[before - 1] == '/') return report.text;
  }
  return {};
}

}  // namespace koru
