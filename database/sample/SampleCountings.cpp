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
      header_(RowWriter::Inserts(connection, "tblInventoryCounting")),
      line_(RowWriter::Inserts(connection, "tblInventoryCountingDetail")),
      code_(RowWriter::Updates(connection, "tblInventoryCounting")),
      links_(RowWriter::Updates(connection, "tblInventoryCounting")) {}

void CountingBook::Write(const Counting& counting) {
  const auto from = counting.period ? std::optional(counting.period->from) : std::nullopt;
  const auto to = counting.period ? std::optional(counting.period->to) : std::nullopt;
  header_.Write({{"ID", counting.id},
                 {"ManualCode", counting.manualCode},
                 {"InventoryID", counting.store},
                 {"CreatorID", counting.creator},
                 {"CreateDate", counting.day},
                 {"FarsiCreateDate", SolarText(counting.day)},
                 {"FromDate", from},
                 {"FarsiFromDate", Solar(from)},
                 {"ToDate", to},
                 {"FarsiToDate", Solar(to)},
                 {"CounterEmployeeID1", counting.counters[0]},
                 {"CounterEmployeeID2", counting.counters[1]},
                 {"CounterEmployeeID3", counting.counters[2]},
                 {"CounterConfirmerID", counting.confirmer},
                 {"Notes", counting.notes}});
  int row = 0;
  for (const CountingLine& line : counting.lines) {
    line_.Write({{"CountingID", counting.id},
                 {"RowNumber", ++row},
                 {"Barcode", line.barcode},
                 {"ScaleID", line.unit},
                 {"FirstCounting", line.counts.first},
                 {"SecondCounting", line.counts.second},
                 {"ThirdCounting", line.counts.third},
                 {"AcceptedCounting", line.accepted},
                 {"SystemCounting", line.books},
                 {"ContradictionCounting", line.difference},
                 {"BaseValue", line.rate}});
  }
}

Adjustments CountingBook::WriteFinal(const Counting& counting) {
  Write(counting);
  code_.Write({{"ID", counting.id}, {"Code", ++lastCode_}});
  Adjustments adjustments;
  adjustments.dispatch = WriteAdjustment(counting, DocumentKind::Dispatch);
  adjustments.receipt = WriteAdjustment(counting, DocumentKind::Receipt);
  Link(counting.id, adjustments);
  return adjustments;
}

std::optional<int> CountingBook::WriteAdjustment(const Counting& counting, DocumentKind kind) {
  const int sign = kind == DocumentKind::Receipt ? 1 : -1;
  Document document{.kind = kind,
                    .store = counting.store,
                    .creator = counting.creator,
                    .day = counting.day,
                    .registered = false};
  document.notes = "سند ايجاد شده از روي شمارش به شماره رايانهاي " + std::to_string(counting.id);
  SqliteStatement lines = connection_.Prepare(
      "select Barcode, sum(ContradictionCounting), ScaleID from tblInventoryCountingDetail"
      " where CountingID = ?1 and ContradictionCounting * ?2 > 0 group by Barcode, ScaleID");
  lines.Bind(1, counting.id);
  lines.Bind(2, sign);
  while (lines.Step()) {
    const double quantity = lines.Real(1) * sign;
    const auto unit = lines.IsNull(2) ? std::nullopt : std::optional(static_cast<int>(lines.Integer(2)));
    document.lines.push_back({.barcode = std::string(lines.Text(0)),
                              .quantity = quantity,
                              .unit = unit,
                              .unitQuantity = quantity});
  }
  if (document.lines.empty()) return std::nullopt;
  return documents_.Write(document);
}

void CountingBook::Link(int id, const Adjustments& adjustments) {
  links_.Write({{"ID", id}, {"ReceiptID", adjustments.receipt}, {"DispatchID", adjustments.dispatch}});
}

}  // namespace koru::sample
