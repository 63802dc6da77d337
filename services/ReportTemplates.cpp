#include "services/ReportTemplates.h"

namespace koru {

bool FillReportTemplates(dteInvCounting& data, std::int32_t formTypeID, ComboBox& list) {
  Recordset templates =
      data.rssqlCommon.Open(SqlText("Select * from tblPelinReportTemplate where FormTypeID = ") + formTypeID);
  for (; !templates.AtEnd(); templates.MoveNext()) {
    list.AddItem(templates.Field("Title").Text(), templates.Field("ID").Integer());
  }
  if (list.Items().empty()) return false;
  list.SetListIndex(0);
  return true;
}

}  // namespace koru
