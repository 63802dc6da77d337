#include "output/frmReport.h"

#include "services/ReportTemplates.h"

namespace koru {

frmReport::frmReport(SharedState& shared, std::int32_t formType)
    : Form(shared.services.screen, "frmReport"),
      cmbReport(*this, "cmbReport"),
      cmdPrint(*this, "cmdPrint"),
      cmdOk(*this, "cmdOk"),
      shared_(shared),
      formType_(formType) {
  cmdPrint.SetCaption("چاپ");
  cmdOk.SetCaption("تاييد");
  OnFailure = [this](const std::exception& failure) { shared_.messages.ShowFailure(failure); };
  cmdPrint.Click.Always([this] { Choose(); });
  cmdOk.Click.Always([this] { Choose(); });
}

bool frmReport::FillReportTemplates() {
  return koru::FillReportTemplates(shared_.data, formType_, cmbReport);
}

void frmReport::Choose() {
  const ComboBox::Item* const chosen = cmbReport.Chosen();
  if (chosen == nullptr) {
    SetFocus(cmbReport);
    shared_.messages.ShowMessage(sentences::kError, "قالب گزارش مشخص نيست.");
    return;
  }
  const Recordset report = shared_.data.rssqlCommon.Open(
      SqlText("Select * From tblPelinReportTemplate Where ID = ") + chosen->itemData);
  chosenFilePath_ = report.Field("FilePath").Text();
  Unload();
}

}  // namespace koru
