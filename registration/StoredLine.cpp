#include "registration/StoredLine.h"

#include <string_view>

#include "lines/LineColumns.h"
#include "platform/controls/Grid.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::optional<double> CountOf(std::string_view cell) {
  return Trim(cell).empty() ? std::optional<double>() : Val(cell);
}

/// The difference of a row from its two columns, of which at most one holds a quantity.
std::optional<double> ContradictionOf(std::string_view shortage, std::string_view surplus) {
  const double above = Val(surplus);
  const double below = Val(shortage);
  if (above > 0) return above;
  if (below > 0) return -below;
  return {};
}

std::optional<double> NumberOf(const Value& field) {
  return field.IsNull() ? std::optional<double>() : field.Number();
}

void AppendOr(SqlText& sql, const std::optional<double>& number, FixedSql null) {
  if (number) {
    sql += *number;
  } else {
    sql += null;
  }
}

}  // namespace

StoredLine LineOfGrid(const Grid& lines, int row) {
  const auto cell = [&](int column) { return lines.TextMatrix(row, column); };
  StoredLine line;
  line.barcode = Trim(cell(LineColumn::Barcode));
  line.rowNumber = row;
  line.scaleID = Val(cell(LineColumn::ScaleID));
  for (std::size_t i = 0; i < line.counts.size(); ++i) {
    line.counts[i] = CountOf(cell(LineColumn::FirstCounting + static_cast<int>(i)));
  }
  line.contradiction = ContradictionOf(cell(LineColumn::Shortage), cell(LineColumn::Surplus));
  line.baseValue = Val(cell(LineColumn::Rate));
  return line;
}

StoredLineReader::StoredLineReader(const Recordset& records)
    : barcode_(records.ColumnIndex("Barcode")),
      rowNumber_(records.ColumnIndex("RowNumber")),
      scaleID_(records.ColumnIndex("ScaleID")),
      counts_{records.ColumnIndex("FirstCounting"), records.ColumnIndex("SecondCounting"),
              records.ColumnIndex("ThirdCounting"), records.ColumnIndex("AcceptedCounting"),
              records.ColumnIndex("SystemCounting")},
      contradiction_(records.ColumnIndex("ContradictionCounting")),
      baseValue_(records.ColumnIndex("BaseValue")) {}

StoredLine StoredLineReader::Line(const Recordset& records, std::size_t record) const {
  const auto field = [&](std::size_t column) { return records.FieldOf(record, column); };
  StoredLine line;
  line.barcode = Trim(field(barcode_).Text());
  line.rowNumber = field(rowNumber_).Integer();
  line.scaleID = NumberOf(field(scaleID_));
  for (std::size_t i = 0; i < counts_.size(); ++i) line.counts[i] = NumberOf(field(counts_[i]));
  line.contradiction = NumberOf(field(contradiction_));
  line.baseValue = NumberOf(field(baseValue_));
  return line;
}

SqlText LineInsert(const StoredLine& line, double countingID) {
  SqlText sql(
      "Insert Into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,"
      "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) Values(");
  sql += countingID;
  sql += ",'";
  sql += Typed(line.barcode);
  sql += "',";
  sql += line.rowNumber;
  sql += ",";
  AppendOr(sql, line.scaleID, "NULL");
  sql += ",";
  for (const std::optional<double>& count : line.counts) {
    AppendOr(sql, count, "NULL");
    sql += ",";
  }
  AppendOr(sql, line.contradiction, "Null");
  sql += ",";
  AppendOr(sql, line.baseValue, "NULL");
  sql += ")";
  return sql;
}

void LinesDigest::Add(const SqlText& insert) {
  hash_ = Fingerprint(insert.Text(), hash_);
  ++count_;
}

}  // namespace koru
