#include "host/CountingRows.h"

namespace koru {

std::vector<CountingRow> ReadCountings(Database& database) {
  Recordset read = database.Open(
      SqlText("Select ID,Code,ManualCode,InvName,FarsiCreateDate,FarsiFromDate,FarsiToDate,Notes,FullName "
              "from vwInventoryCounting Order By ID Desc"));
  std::vector<CountingRow> rows;
  rows.reserve(read.RecordCount());
  for (; !read.AtEnd(); read.MoveNext()) {
    CountingRow row;
    row.id = read.Field("ID").Integer();
    if (!read.Field("Code").IsNull()) row.code = read.Field("Code").Integer();
    row.manualCode = read.Field("ManualCode").Text();
    row.store = read.Field("InvName").Text();
    row.createDate = read.Field("FarsiCreateDate").Text();
    row.fromDate = read.Field("FarsiFromDate").Text();
    row.toDate = read.Field("FarsiToDate").Text();
    row.notes = read.Field("Notes").Text();
    row.creator = read.Field("FullName").Text();
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace koru
