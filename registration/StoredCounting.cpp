#include "registration/StoredCounting.h"

#include <utility>

#include "platform/sql/DatabaseError.h"

namespace koru {

const std::vector<StoredCounting::HeaderField>& StoredCounting::HeaderFields() {
  static const std::vector<HeaderField> fields = {
      {"InventoryID", "انبار"},
      {"ManualCode", "شماره دستي"},
      {"CreateDate", "تاريخ شمارش"},
      {"FromDate", "از تاريخ"},
      {"ToDate", "تا تاريخ"},
      {"CounterEmployeeID1", "شمارنده اول"},
      {"CounterEmployeeID2", "شمارنده دوم"},
      {"CounterEmployeeID3", "شمارنده سوم"},
      {"CounterConfirmerID", "تاييد كننده"},
      {"Notes", "توضيحات"},
  };
  return fields;
}

bool SameCounting(const CountingSnapshot& one, const CountingSnapshot& other) {
  return one.exists == other.exists && one.code == other.code && one.header == other.header &&
         one.lines == other.lines;
}

void StoredCounting::Remember(std::int32_t id) {
  Forget();
  const auto foreignWrites = data_.ForeignWrites();
  CountingSnapshot now = ReadHeader(id);
  if (now.exists) now.lines = ReadLines(id);
  id_ = id;
  foreignWrites_ = foreignWrites;
  remembered_ = std::move(now);
}

void StoredCounting::RememberSaved(std::int32_t id, const LinesDigest& lines) {
  Forget();
  try {
    const auto foreignWrites = data_.ForeignWrites();
    CountingSnapshot now = ReadHeader(id);
    now.lines = lines;
    id_ = id;
    foreignWrites_ = foreignWrites;
    remembered_ = std::move(now);
  } catch (const DatabaseError&) {
    Forget();
  }
}

void StoredCounting::RememberIfPossible(std::int32_t id) {
  try {
    Forget();
    if (id != 0) Remember(id);
  } catch (const DatabaseError&) {
    Forget();
  }
}

void StoredCounting::Accept(CountingSnapshot now) {
  foreignWrites_.reset();
  remembered_ = std::move(now);
}

std::optional<CountingSnapshot> StoredCounting::FindChange() {
  if (!remembered_) return {};
  const auto foreignWrites = data_.ForeignWrites();
  if (foreignWrites && foreignWrites == foreignWrites_) return {};
  CountingSnapshot now = ReadHeader(id_);
  if (now.exists) now.lines = ReadLines(id_);
  if (!SameCounting(*remembered_, now)) return now;
  foreignWrites_ = foreignWrites;
  return {};
}

std::optional<std::string> StoredCounting::ReadCode(double id) {
  const Recordset counting =
      data_.rssqlCommon2.Open(SqlText("Select Code from tblInventoryCounting Where ID = ") + id);
  if (counting.RecordCount() == 0) return {};
  return counting.Field("Code").Text();
}

CountingSnapshot StoredCounting::ReadHeader(std::int32_t id) {
  CountingSnapshot now;
  const Recordset counting =
      data_.rssqlCommon2.Open(SqlText("Select * from tblInventoryCounting Where ID = ") + id);
  if (counting.RecordCount() == 0) return now;
  now.exists = true;
  now.code = counting.Field("Code").Text();
  now.lastSaverID = counting.Field("CreatorID").IsNull() ? 0 : counting.Field("CreatorID").Integer();
  for (const HeaderField& field : HeaderFields()) now.header.push_back(counting.Field(field.column).Text());
  return now;
}

LinesDigest StoredCounting::ReadLines(std::int32_t id) {
  LinesDigest digest;
  Recordset lines = data_.rssqlCommon2.Open(
      SqlText("Select * from tblInventoryCountingDetail Where CountingID = ") + id + " Order By RowNumber");
  if (lines.RecordCount() == 0) return digest;
  const StoredLineReader reader(lines);
  for (; !lines.AtEnd(); lines.MoveNext()) digest.Add(LineInsert(reader.Line(lines), id));
  return digest;
}

}  // namespace koru
