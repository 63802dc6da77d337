#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/ports/ReportPrinter.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdView: the user chooses a report template, and the suite's report printer shows the stored
/// lines of the counting on the form with it.
class ViewReport {
 public:
  /// The kind of form whose report templates are offered.
  static constexpr std::int32_t kFormType = 806;

  /// Both must outlive the command.
  ViewReport(InvCountingControls& controls, SharedState& shared) : controls_(controls), shared_(shared) {}

  /// Reads the suite's report folder. Throws DatabaseError.
  void ReadBaseFolder();

  /// Off while the report is shown. Kept for the suite, whose forms have such a flag: nothing in this
  /// component asks.
  [[nodiscard]] bool Ready() const { return ready_; }

  /// A report path that names no file gets the base folder put before it, without a separator. Without a
  /// template, or when the user chooses none, nothing is shown. Throws ComponentError (429) when the suite
  /// has no report printer, DatabaseError, and what the printer throws.
  ///
  /// `isStored`: whether the form shows what is stored; if not, the preview says that it does not show the
  /// form.
  void Run(bool isStored = true);

 private:
  [[nodiscard]] ReportPrinter& Printer();
  [[nodiscard]] std::string ChooseReport() const;
  [[nodiscard]] std::string CompanyFormula() const;

  InvCountingControls& controls_;
  SharedState& shared_;
  std::string baseFolder_;  ///< put before relative report paths; empty when the suite has none
  bool ready_ = true;
  std::unique_ptr<SiblingComponent> component_;
};

}  // namespace koru
