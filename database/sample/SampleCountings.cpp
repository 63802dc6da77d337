#include "database/sample/SampleCountings.h"

#include "database/sample/SampleRows.h"
#include "platform/text/Numbers.h"

namespace koru::sample {
namespace {

std::optional<std::string> Solar(const std::optional<Date>& day) {
  return day ? std::optional(SolarText(*day)) : std::nullopt;
}

}  // namespace

std::optional<double> Difference(const std::optional<double>& accepted, double books) {
  const double difference = Round(accepted.value_or(0) - books, 3);
  return difference == 0 ? std::nullopt : std::optional(difference);
}

CountingBook::CountingBook(SqliteConnection& connection, DocumentBook& documents)
    : connection_(connection),
      documents_(documents),
      header_(connection.Prepare(
          "insert into tblInventoryCounting (ID, ManualCode, InventoryID, CreatorID, CreateDate, "
          "FarsiCreateDate,"
          " FromDate, FarsiFromDate, ToDate, FarsiToDate, CounterEmployeeID1, CounterEmployeeID2,"
          " CounterEmployeeID3, CounterConfirmerID, Notes) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
          "?)")),
      line_(connection.Prepare(
          "insert into tblInventoryCountingDetail (CountingID, RowNumber, Barcode, ScaleID, FirstCounting,"
          " SecondCounting, ThirdCounting, AcceptedCounting, SystemCounting, ContradictionCounting, "
          "BaseValue)"
          " values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")),
      code_(connection.Prepare("update tblInventoryCounting set Code = ? where ID = ?")),
      links_(
          connection.Prepare("update tblInventoryCounting set ReceiptID = ?, DispatchID = ? where ID = ?")) {}

void CountingBook::Write(const Counting& counting) {
  const auto from = counting.period ? std::optional(counting.period->from) : std::nullopt;
  const auto to = counting.period ? std::optional(counting.period->to) : std::nullopt;
  Insert(header_, counting.id, counting.manualCode, counting.store, counting.creator, counting.day,
         SolarText(counting.day), from, Solar(from), to, Solar(to), counting.counters[0],
         counting.counters[1], counting.counters[2], counting.confirmer, counting.notes);
  int row = 0;
  for (const CountingLine& line : counting.lines) {
    Insert(line_, counting.id, ++row, line.barcode, line.unit, line.counts[0], line.counts[1], line.counts[2],
           line.accepted, line.books, line.difference, line.rate);
  }
}

Adjustments CountingBook::WriteFinal(const Counting& counting) {
  Write(counting);
  Insert(code_, ++lastCode_, counting.id);
  Adjustments adjustments;
  adjustments.dispatch = WriteAdjustment(counting, DocumentKind::Dispatch);
  adjustments.receipt = WriteAdjustment(counting, DocumentKind::Receipt);
  Link(counting.id, adjustments);
  return adjustments;
}

std::optional<int> CountingBook::WriteAdjustment(const Counting& counting, DocumentKind kind) {
  const int sign = kind == DocumentKind::Receipt ? 1 : -1;
  Document document{kind, counting.store, counting.creator, counting.day, false, {}, {}};
  document.notes = "سند ايجاد شده از روي شمارش به شماره رايانهاي " + std::to_string(counting.id);
  SqliteStatement lines = connection_.Prepare(
      "select Barcode, sum(ContradictionCounting), ScaleID from tblInventoryCountingDetail"
      " where CountingID = ?1 and ContradictionCounting * ?2 > 0 group by Barcode, ScaleID");
  lines.Bind(1, counting.id);
  lines.Bind(2, sign);
  while (lines.Step()) {
    const double quantity = lines.Real(1) * sign;
    const auto unit = lines.IsNull(2) ? std::nullopt : std::optional(static_cast<int>(lines.Integer(2)));
    document.lines.push_back({std::string(lines.Text(0)), quantity, unit, quantity, std::nullopt});
  }
  if (document.lines.empty()) return std::nullopt;
  return documents_.Write(document);
}

void CountingBook::Link(int id, const Adjustments& adjustments) {
  Insert(links_, adjustments.receipt, adjustments.dispatch, id);
}

}  // namespace koru::sample
