#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/Button.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "services/SharedState.h"

namespace koru {

/// The modal chooser of a report template, made anew for every choice. Both buttons choose; closing the
/// window chooses nothing.
class frmReport : public Form {
 public:
  /// `shared` must outlive the form; `formType` is the kind of form whose templates are offered.
  frmReport(SharedState& shared, std::int32_t formType);

  /// Fills cmbReport with the templates of the form type and chooses the first. Returns whether there are
  /// any. Throws DatabaseError.
  bool FillReportTemplates();
  /// What the report is for, shown as the form's title.
  void SetHeading(std::string heading) { SetCaption(std::move(heading)); }
  /// The file of the chosen template, as the suite stores it; empty when none was chosen.
  [[nodiscard]] const std::string& ChosenFilePath() const { return chosenFilePath_; }

  ComboBox cmbReport;
  Button cmdPrint;  ///< chooses, as cmdOk does
  Button cmdOk;

  /// Unloads, since the chooser is not shown again.
  void UserClose() override { Unload(); }

 private:
  void Choose();

  SharedState& shared_;
  std::int32_t formType_;
  std::string chosenFilePath_;
};

}  // namespace koru
