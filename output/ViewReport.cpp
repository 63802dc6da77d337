#include "output/ViewReport.h"

#include "output/frmReport.h"
#include "platform/ports/ComponentError.h"

namespace koru {
namespace {

constexpr const char* kNotTheForm = "اين گزارش شمارش ذخيره شده است؛ آنچه روي فرم ذخيره نشده است در آن نيست.";

/// The flag is off during the object's lifetime.
class NotReady {
 public:
  explicit NotReady(bool& ready) : ready_(ready) { ready_ = false; }
  NotReady(const NotReady&) = delete;
  NotReady& operator=(const NotReady&) = delete;
  ~NotReady() { ready_ = true; }

 private:
  bool& ready_;
};

}  // namespace

void ViewReport::ReadBaseFolder() {
  const Recordset base =
      shared_.data.rssqlCommon.Open(SqlText("Select Isnull(BasePath,'') as BasePath from vwPelinBasePath"));
  baseFolder_ = base.RecordCount() == 0 ? std::string() : base.Field("BasePath").Text();
}

void ViewReport::Run(bool isStored) {
  ReportPrinter& printer = Printer();
  printer.SetReportFileName({});
  const std::string path = ChooseReport();
  printer.SetReportFileName(path);
  if (path.empty()) return;
  if (!shared_.services.files.FileExists(path)) printer.SetReportFileName(baseFolder_ + path);
  const Hourglass busy(shared_.services.screen);
  printer.SetConnectionString(shared_.data.ConnectionString());
  const SqlText query = SqlText("SELECT * From vwInventoryCountingPrint Where ID=") + controls_.CountingID() +
                        " order by GoodCode";
  printer.SetSQLQuery(query);
  printer.SetFormula(1, CompanyFormula());
  printer.SetNote(isStored ? "" : kNotTheForm);
  const NotReady shown(ready_);
  printer.Show();
}

/// The printer is kept from the first report on, as a component placed on the form would be.
ReportPrinter& ViewReport::Printer() {
  if (!component_) component_ = shared_.services.components.Create(ReportPrinter::kClassName);
  auto* const printer = dynamic_cast<ReportPrinter*>(component_.get());
  if (printer == nullptr) {
    component_.reset();
    throw ComponentError("در اين برنامه جزئي براي نمايش گزارش نيست.", ComponentError::kNotRegistered);
  }
  return *printer;
}

std::string ViewReport::ChooseReport() const {
  frmReport chooser(shared_, kFormType);
  if (chooser.FillReportTemplates()) {
    chooser.SetHeading("مشاهده");
    chooser.Show(true);
  }
  chooser.Unload();
  return chooser.ChosenFilePath();
}

/// The name is written into the formula unchanged: an apostrophe in it is not doubled.
std::string ViewReport::CompanyFormula() const {
  const Recordset company = shared_.data.rssqlCommon.Open(SqlText("Select top 1 Name from vwPelinCompany"));
  const std::string name = company.RecordCount() == 0 ? std::string() : company.Field("Name").Text();
  return "fmlCompanyName='" + name + "'";
}

}  // namespace koru
