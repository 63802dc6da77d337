#pragma once

#include <functional>
#include <memory>
#include <string>

#include "siblings/report/ReportDocument.h"

namespace koru {

/// Opens the preview of a report, which stays open until the user closes it; the program continues meanwhile.
/// `reportFailure` shows the user a sentence when something fails in the preview.
void OpenPreview(std::unique_ptr<const ReportDocument> report,
                 std::function<void(const std::string&)> reportFailure);

}  // namespace koru
