#include "registration/StoredLine.h"

#include <string_view>

#include "lines/LineColumns.h"
#include "platform/controls/Grid.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr const char* kInsertInto =
    "Insert Into tblInventoryCountingDetail "
    "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,SecondCounting,"
    "ThirdCounting,AcceptedCounting,SystemCounting,ContradictionCounting,BaseValue) Values(";

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
  line.firstCounting = CountOf(cell(LineColumn::FirstCounting));
  line.secondCounting = CountOf(cell(LineColumn::SecondCounting));
  line.thirdCounting = CountOf(cell(LineColumn::ThirdCounting));
  line.acceptedCounting = CountOf(cell(LineColumn::AcceptedCounting));
  line.systemCounting = CountOf(cell(LineColumn::SystemCounting));
  line.contradiction = ContradictionOf(cell(LineColumn::Shortage), cell(LineColumn::Surplus));
  line.baseValue = Val(cell(LineColumn::Rate));
  return line;
}

StoredLineReader::StoredLineReader(const Recordset& records)
    : barcode_(records.ColumnIndex("Barcode")),
      rowNumber_(records.ColumnIndex("RowNumber")),
      scaleID_(records.ColumnIndex("ScaleID")),
      firstCounting_(records.ColumnIndex("FirstCounting")),
      secondCounting_(records.ColumnIndex("SecondCounting")),
      thirdCounting_(records.ColumnIndex("ThirdCounting")),
      acceptedCounting_(records.ColumnIndex("AcceptedCounting")),
      systemCounting_(records.ColumnIndex("SystemCounting")),
      contradiction_(records.ColumnIndex("ContradictionCounting")),
      baseValue_(records.ColumnIndex("BaseValue")) {}

StoredLine StoredLineReader::Line(const Recordset& records, std::size_t record) const {
  const auto field = [&](std::size_t column) { return records.FieldOf(record, column); };
  StoredLine line;
  line.barcode = Trim(field(barcode_).Text());
  line.rowNumber = field(rowNumber_).Integer();
  line.scaleID = NumberOf(field(scaleID_));
  line.firstCounting = NumberOf(field(firstCounting_));
  line.secondCounting = NumberOf(field(secondCounting_));
  line.thirdCounting = NumberOf(field(thirdCounting_));
  line.acceptedCounting = NumberOf(field(acceptedCounting_));
  line.systemCounting = NumberOf(field(systemCounting_));
  line.contradiction = NumberOf(field(contradiction_));
  line.baseValue = NumberOf(field(baseValue_));
  return line;
}

SqlText LineInsert(const StoredLine& line, double countingID) {
  SqlText sql(kInsertInto);
  sql += countingID;
  sql += ",'";
  sql += Typed(line.barcode);
  sql += "',";
  sql += line.rowNumber;
  sql += ",";
  for (const auto& number : {line.scaleID, line.firstCounting, line.secondCounting, line.thirdCounting,
                             line.acceptedCounting, line.systemCounting}) {
    AppendOr(sql, number, "NULL");
    sql += ",";
  }
  AppendOr(sql, line.contradiction, "Null");
  sql += ",";
  AppendOr(sql, line.baseValue, "NULL");
  sql += ")";
  return sql;
}

void LinesDigest::Add(const SqlText& insert) {
  std::string_view values = insert.Text();
  values.remove_prefix(std::string_view(kInsertInto).size());  // the same in every line
  hash_ = Fingerprint(values, hash_);
  ++count_;
}

}  // namespace koru
