#pragma once

#include <cstdint>
#include <string>

#include "platform/controls/Button.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/Form.h"
#include "services/SharedState.h"

namespace koru {

/// The modal chooser of a report template. It is made anew for every choice; closing it in any other way than
/// by its two buttons chooses nothing.
class frmReport : public Form {
 public:
  /// `shared` must outlive the form; `formType` is the kind of form whose templates are offered.
  frmReport(SharedState& shared, std::int32_t formType);

  /// Fills cmbReport with the templates of the form type and chooses the first; answers whether there is any.
  /// Throws DatabaseError.
  bool FillReportTemplates();
  /// What the report is wanted for; stands in the form's title.
  void SetHeading(std::string heading) { SetCaption(std::move(heading)); }
  /// The file of the chosen template as the suite keeps it; empty when none was chosen.
  [[nodiscard]] const std::string& ChosenFilePath() const { return chosenFilePath_; }

  ComboBox cmbReport;
  Button cmdPrint;
  Button cmdOk;

  /// A choice that was not made leaves nothing behind that could be shown again.
  void UserClose() override { Unload(); }

 private:
  void Choose();

  SharedState& shared_;
  std::int32_t formType_;
  std::string chosenFilePath_;
};

}  // namespace koru
