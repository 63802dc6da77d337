#include "reports/BuiltInReports.h"

namespace koru {

std::string_view FindBuiltInReport(std::string_view path) {
  for (const BuiltInReport& report : BuiltInReports()) {
    if (path == report.path) return report.text;
  }
  return {};
}

}  // namespace koru
