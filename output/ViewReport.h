#pragma once

#include <memory>
#include <string>

#include "platform/controls/Label.h"
#include "platform/ports/ReportPrinter.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdView: the person chooses a report template, and the suite's report printer shows the stored
/// lines of the counting on the form with it.
class ViewReport {
 public:
  /// The kind of form whose report templates are offered.
  static constexpr std::int32_t kFormType = 806;

  /// All must outlive the command. `lblIDVal` holds the counting's key, `baseFolder` what a report path that
  /// does not exist as it is gets in front, without a separator added; `ready` is off while the report is
  /// shown.
  ViewReport(SharedState& shared, const Label& lblIDVal, const std::string& baseFolder, bool& ready)
      : shared_(shared), lblIDVal_(lblIDVal), baseFolder_(baseFolder), ready_(ready) {}

  /// Nothing is shown, and nothing said, when the form has no template or the person chooses none. Throws
  /// ComponentError (429) when the suite has no report printer, DatabaseError, and what the printer throws.
  void Run();

 private:
  [[nodiscard]] ReportPrinter& Printer();
  [[nodiscard]] std::string ChooseReport() const;
  [[nodiscard]] std::string CompanyFormula() const;

  SharedState& shared_;
  const Label& lblIDVal_;
  const std::string& baseFolder_;
  bool& ready_;
  std::unique_ptr<SiblingComponent> component_;
};

}  // namespace koru
