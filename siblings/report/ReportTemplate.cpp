#include "siblings/report/ReportTemplate.h"

#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {

double ReportBand::Height() const {
  double height = 0;
  for (const ReportLine& line : lines) height += line.height;
  return height;
}

void RefuseReport(const std::string& file, int line, const std::string& reason) {
  const std::string place = line == 0 ? std::string() : "، سطر " + std::to_string(line);
  throw InputError("قالب گزارش " + LeftToRight(file) + place + ": " + reason + ".");
}

}  // namespace koru
