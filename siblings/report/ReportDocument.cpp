#include "siblings/report/ReportDocument.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "siblings/report/ReportNumbers.h"

namespace koru {
namespace {

constexpr std::string_view kSum = "sum ";
constexpr std::string_view kRank = "rank ";
constexpr const char* kIsolate = "\u2068";
constexpr const char* kEndOfIsolate = "\u2069";

bool Holds(const ReportRowCondition& condition, double number) {
  using Operator = ReportRowCondition::Operator;
  switch (condition.comparison) {
    case Operator::Equal:
      return number == condition.number;
    case Operator::NotEqual:
      return number != condition.number;
    case Operator::Less:
      return number < condition.number;
    case Operator::Greater:
      return number > condition.number;
    case Operator::LessOrEqual:
      return number <= condition.number;
    case Operator::GreaterOrEqual:
      return number >= condition.number;
  }
  return true;
}

}  // namespace

ReportDocument::ReportDocument(ReportTemplate report, Recordset records, ReportFormulas formulas)
    : report_(std::move(report)), records_(std::move(records)), formulas_(std::move(formulas)) {
  ChooseRows();
  ResolveValues();
  pages_ = LayOutReport(report_, rows_.size());
}

void ReportDocument::ChooseRows() {
  const ReportRowCondition always{};
  const ReportRowCondition& condition = report_.rows ? *report_.rows : always;
  const std::size_t column = report_.rows ? ColumnOf(condition.column, condition.sourceLine) : 0;
  for (std::size_t record = 0; record < records_.RecordCount(); ++record) {
    if (!report_.rows || Holds(condition, records_.FieldOf(record, column).Number())) rows_.push_back(record);
  }
}

void ReportDocument::ResolveValues() {
  ResolveValuesOf(report_.name);
  for (const ReportBand& band : report_.bands) {
    for (const ReportLine& line : band.lines) {
      for (const ReportCell& cell : line.cells) ResolveValuesOf(cell);
    }
  }
}

void ReportDocument::ResolveValuesOf(const ReportCell& cell) {
  for (const ReportPiece& piece : cell.pieces) {
    if (piece.isValue && !values_.contains(piece.text)) values_[piece.text] = Resolve(cell, piece.text);
  }
}

std::string ReportDocument::Name() const {
  const PlacedBand title{.kind = ReportBandKind::Title};
  return std::string(Trim(CellText(report_.name, title, 0)));
}

ReportDocument::ValueSource ReportDocument::Resolve(const ReportCell& cell, const std::string& name) const {
  if (name == "row") return {.kind = ValueKind::Row};
  if (name == "count") return {.kind = ValueKind::Count};
  if (name == "page") return {.kind = ValueKind::Page};
  if (name == "pages") return {.kind = ValueKind::Pages};
  if (formulas_.contains(name)) return {.kind = ValueKind::Formula};
  if (name.starts_with(kSum)) {
    const std::size_t column = ColumnOf(Trim(std::string_view(name).substr(kSum.size())), cell.sourceLine);
    return {.kind = ValueKind::Sum, .column = column, .sum = SumOf(column)};
  }
  if (name.starts_with(kRank)) {
    const std::size_t column = ColumnOf(Trim(std::string_view(name).substr(kRank.size())), cell.sourceLine);
    return {.kind = ValueKind::Rank, .ranks = RanksBy(column)};
  }
  return {.kind = ValueKind::Column, .column = ColumnOf(name, cell.sourceLine)};
}

std::size_t ReportDocument::ColumnOf(std::string_view name, int sourceLine) const {
  const auto& columns = records_.Columns();
  const auto found = std::find_if(columns.begin(), columns.end(),
                                  [&](const std::string& column) { return EqualsNoCase(column, name); });
  if (found == columns.end()) {
    RefuseReport(report_.file, sourceLine,
                 "ستون يا فرمول «" + std::string(name) + "» در داده هاي گزارش نيست");
  }
  return static_cast<std::size_t>(found - columns.begin());
}

double ReportDocument::SumOf(std::size_t column) const {
  double sum = 0;
  for (const std::size_t record : rows_) sum += records_.FieldOf(record, column).Number();
  return sum;
}

/// The place of each record among all of them, the smallest number first; records of equal numbers keep their
/// order.
std::vector<std::size_t> ReportDocument::RanksBy(std::size_t column) const {
  std::vector<std::size_t> order(records_.RecordCount());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::vector<double> numbers;
  numbers.reserve(order.size());
  for (const std::size_t record : order) numbers.push_back(records_.FieldOf(record, column).Number());
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return numbers[a] < numbers[b]; });
  std::vector<std::size_t> ranks(order.size());
  for (std::size_t place = 0; place < order.size(); ++place) ranks[order[place]] = place + 1;
  return ranks;
}

std::string ReportDocument::CellText(const ReportCell& cell, const PlacedBand& band, std::size_t page) const {
  std::string text;
  for (const ReportPiece& piece : cell.pieces) {
    std::string part = piece.isValue ? ValueText(cell, piece.text, band, page) : piece.text;
    if (cell.code) {
      text += part;
      continue;
    }
    if (report_.persianDigits)
      part = cell.decimals && piece.isValue ? PersianNumber(part) : PersianDigits(part);
    text += piece.isValue && !part.empty() ? kIsolate + part + kEndOfIsolate : part;
  }
  return text;
}

std::string ReportDocument::ValueText(const ReportCell& cell, const std::string& name, const PlacedBand& band,
                                      std::size_t page) const {
  const ValueSource& source = values_.at(name);
  switch (source.kind) {
    case ValueKind::Column:
      return FieldText(cell, source.column, band);
    case ValueKind::Sum:
      return NumberOf(cell, source.sum);
    case ValueKind::Rank:
      return band.kind == ReportBandKind::Row ? std::to_string(source.ranks[rows_[band.row]]) : std::string();
    case ValueKind::Formula:
      return formulas_.at(name);
    case ValueKind::Row:
      return std::to_string(band.row + 1);
    case ValueKind::Count:
      return std::to_string(rows_.size());
    case ValueKind::Page:
      return std::to_string(page + 1);
    case ValueKind::Pages:
      return std::to_string(pages_.size());
  }
  return {};
}

std::string ReportDocument::FieldText(const ReportCell& cell, std::size_t column,
                                      const PlacedBand& band) const {
  if (records_.RecordCount() == 0) return {};
  const std::size_t record = band.kind == ReportBandKind::Row ? rows_[band.row] : 0;
  const Value value = records_.FieldOf(record, column);
  return cell.decimals && !value.IsNull() ? NumberOf(cell, value.Number()) : value.Text();
}

std::string ReportDocument::NumberOf(const ReportCell& cell, double number) const {
  return cell.decimals ? ReportNumber(number, *cell.decimals) : NumberText(number);
}

}  // namespace koru
