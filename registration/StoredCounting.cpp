#include "registration/StoredCounting.h"

#include <utility>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

SqlText HeaderStatement(std::int32_t id) {
  return SqlText("Select * from tblInventoryCounting Where ID = ") + id;
}

/// Without the lines.
CountingSnapshot HeaderOf(const Recordset& counting) {
  CountingSnapshot now;
  if (counting.RecordCount() == 0) return now;
  now.exists = true;
  now.code = counting.Field("Code").Text();
  now.lastSaverID = counting.Field("CreatorID").IsNull() ? 0 : counting.Field("CreatorID").Integer();
  for (const auto& field : StoredCounting::HeaderFields()) {
    now.header.push_back(counting.Field(field.column).Text());
  }
  return now;
}

LinesDigest DigestOf(const Recordset& lines, std::int32_t id) {
  LinesDigest digest;
  if (lines.RecordCount() == 0) return digest;
  const StoredLineReader reader(lines);
  for (std::size_t i = 0; i < lines.RecordCount(); ++i) digest.Add(LineInsert(reader.Line(lines, i), id));
  return digest;
}

}  // namespace

const std::vector<StoredCounting::HeaderField>& StoredCounting::HeaderFields() {
  static const std::vector<HeaderField> fields = {
      {"InventoryID", "انبار"},
      {"ManualCode", "شماره دستي"},
      {"CreateDate", "تاريخ تهيه"},
      {"FromDate", "از تاريخ"},
      {"ToDate", "تا تاريخ"},
      {"CounterEmployeeID1", "شمارشگر اول"},
      {"CounterEmployeeID2", "شمارشگر دوم"},
      {"CounterEmployeeID3", "شمارشگر سوم"},
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
  CountingSnapshot now = Read(id);
  id_ = id;
  foreignWrites_ = foreignWrites;
  remembered_ = std::move(now);
}

void StoredCounting::Remember(std::int32_t id, const Recordset& shown) {
  Remember(id);
  CountingSnapshot seen = HeaderOf(shown);
  seen.lines = remembered_->lines;
  if (!SameCounting(*remembered_, seen)) foreignWrites_.reset();
  remembered_ = std::move(seen);
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

void StoredCounting::RememberReturned(std::int32_t id) {
  if (remembered_) {
    remembered_->code.clear();
    return;
  }
  try {
    Remember(id);
  } catch (const DatabaseError&) {
    Forget();
  }
}

void StoredCounting::Accept(CountingSnapshot now) {
  foreignWrites_.reset();
  remembered_ = std::move(now);
}

void StoredCounting::Resume(std::int32_t id, std::optional<CountingSnapshot> remembered) {
  id_ = id;
  foreignWrites_.reset();
  remembered_ = std::move(remembered);
}

std::optional<CountingSnapshot> StoredCounting::FindChange() {
  if (!remembered_) return {};
  const auto foreignWrites = data_.ForeignWrites();
  if (foreignWrites && foreignWrites == foreignWrites_) return {};
  CountingSnapshot now = Read(id_);
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

CountingSnapshot StoredCounting::Read(std::int32_t id) {
  CountingSnapshot now;
  const SqlText lines =
      SqlText("Select * from tblInventoryCountingDetail Where CountingID = ") + id + " Order By RowNumber";
  data_.rssqlCommon2.OpenAll({HeaderStatement(id), lines}, [&](std::size_t i, const Recordset& records) {
    if (i == 0) {
      now = HeaderOf(records);
    } else if (now.exists) {
      now.lines = DigestOf(records, id);
    }
  });
  return now;
}

CountingSnapshot StoredCounting::ReadHeader(std::int32_t id) {
  return HeaderOf(data_.rssqlCommon2.Open(HeaderStatement(id)));
}

}  // namespace koru
