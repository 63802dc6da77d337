#include "benchmarks/LinesByHand.h"

#include <charconv>

#include "benchmarks/PlainStatement.h"
#include "lines/LineColumns.h"

namespace koru::bench {
namespace {

constexpr int kDifference = 5;  ///< of ReadyLine::values

double NumberIn(std::string_view text) {
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

void ReplaceLines(const PlainConnection& connection, int counting, const std::vector<ReadyLine>& lines) {
  connection.Execute("delete from tblInventoryCountingDetail where CountingID = " + std::to_string(counting));
  PlainStatement insert(
      connection,
      "insert into tblInventoryCountingDetail (CountingID, Barcode, RowNumber, ScaleID, FirstCounting,"
      " SecondCounting, ThirdCounting, AcceptedCounting, SystemCounting, ContradictionCounting,"
      " BaseValue) values (?11, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10)");
  insert.Bind(11, std::int64_t{counting});
  std::int64_t row = 0;
  for (const ReadyLine& line : lines) {
    insert.Bind(1, line.barcode);
    insert.Bind(2, ++row);
    insert.Bind(3, std::int64_t{line.unit});
    for (int at = 0; at < 7; ++at) {
      if (line.has[at]) {
        insert.Bind(4 + at, line.values[at]);
      } else {
        insert.BindNull(4 + at);
      }
    }
    insert.Run();
  }
}

/// Writes the receipt or dispatch for the lines whose difference has the given sign.
void WriteDocument(const PlainConnection& connection, const std::string& kind, int counting,
                   const std::vector<ReadyLine>& lines, int sign) {
  const std::string id = std::to_string(counting);
  connection.Execute(
      "insert into tblInventory" + kind +
      " (InventoryID, CreatorID, ReceiveDate, FarsiReceiveDate, CreateDate, FarsiCreateDate,"
      " Notes) select InventoryID, 1, CreateDate, FarsiCreateDate, CreateDate, FarsiCreateDate,"
      " 'سند ايجاد شده از روي شمارش به شماره رايانهاي ' || ID from tblInventoryCounting"
      " where ID = " +
      id);
  const std::int64_t document = sqlite3_last_insert_rowid(connection.Get());
  PlainStatement insert(connection, "insert into tblInventory" + kind + "Detail (" + kind +
                                        "ID, Barcode, Qty, ScaleID, ScaleQty, Description)"
                                        " values (?1, ?2, ?3, ?4, ?3, '')");
  insert.Bind(1, document);
  for (const ReadyLine& line : lines) {
    const double quantity = sign * line.values[kDifference];
    if (quantity <= 0) continue;
    insert.Bind(2, line.barcode);
    insert.Bind(3, quantity);
    insert.Bind(4, std::int64_t{line.unit});
    insert.Run();
  }
  connection.Execute("update tblInventoryCounting set " + kind + "ID = " + std::to_string(document) +
                     " where ID = " + id);
}

}  // namespace

std::vector<std::string> CopyTexts(const PlainConnection& connection, const std::string& sql) {
  PlainStatement rows(connection, sql);
  std::vector<std::string> texts;
  while (rows.Step()) {
    for (int column = 0; column < rows.Columns(); ++column) texts.emplace_back(rows.Text(column));
  }
  return texts;
}

std::vector<ReadyLine> ReadyLines(const Grid& lines) {
  std::vector<ReadyLine> ready(static_cast<std::size_t>(lines.Rows() - 1));
  for (int row = 1; row < lines.Rows(); ++row) {
    ReadyLine& line = ready[static_cast<std::size_t>(row - 1)];
    line.barcode = lines.TextMatrix(row, LineColumn::Barcode);
    line.unit = static_cast<int>(NumberIn(lines.TextMatrix(row, LineColumn::ScaleID)));
    const auto set = [&](int at, std::string_view text, int sign) {
      if (text.empty()) return;
      line.has[at] = true;
      line.values[at] = sign * NumberIn(text);
    };
    for (int at = 0; at < 5; ++at) set(at, lines.TextMatrix(row, LineColumn::FirstCounting + at), 1);
    set(kDifference, lines.TextMatrix(row, LineColumn::Surplus), 1);
    set(kDifference, lines.TextMatrix(row, LineColumn::Shortage), -1);
    set(6, lines.TextMatrix(row, LineColumn::Rate), 1);
  }
  return ready;
}

void SaveByHand(const PlainConnection& connection, int counting, const std::vector<ReadyLine>& lines) {
  connection.Execute("BEGIN IMMEDIATE");
  ReplaceLines(connection, counting, lines);
  connection.Execute("COMMIT");
}

void RegisterByHand(const PlainConnection& connection, int counting, const std::vector<ReadyLine>& lines) {
  connection.Execute("BEGIN IMMEDIATE");
  ReplaceLines(connection, counting, lines);
  connection.Execute(
      "update tblInventoryCounting set Code = (select ifnull(max(Code), 0) + 1 from "
      "tblInventoryCounting) where ID = " +
      std::to_string(counting));
  WriteDocument(connection, "Dispatch", counting, lines, -1);
  WriteDocument(connection, "Receipt", counting, lines, 1);
  connection.Execute("COMMIT");
}

double SumAmounts(const Grid& lines) {
  double sums[3] = {};
  for (int row = 1; row < lines.Rows(); ++row) {
    for (int at = 0; at < 3; ++at)
      sums[at] += NumberIn(lines.TextMatrix(row, LineColumn::ShortageAmount + at));
  }
  return sums[0] + sums[1] + sums[2];
}

}  // namespace koru::bench
