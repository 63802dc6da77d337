#include "database/sample/SampleRows.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace koru::sample {
namespace {

std::string InsertStatement(const std::string& table, const std::vector<std::string>& columns) {
  std::string names;
  std::string values;
  for (const std::string& column : columns) {
    names += (names.empty() ? "" : ", ") + column;
    values += values.empty() ? "?" : ", ?";
  }
  return "insert into " + table + " (" + names + ") values (" + values + ")";
}

/// The key is parameter 1, as in the row.
std::string UpdateStatement(const std::string& table, const std::vector<std::string>& columns) {
  std::string assignments;
  for (std::size_t i = 1; i < columns.size(); ++i) {
    assignments += (i == 1 ? "" : ", ") + columns[i] + " = ?" + std::to_string(i + 1);
  }
  return "update " + table + " set " + assignments + " where " + columns.front() + " = ?1";
}

}  // namespace

RowWriter::RowWriter(SqliteConnection& connection, Kind kind, std::string table)
    : connection_(connection), kind_(kind), table_(std::move(table)) {}

RowWriter RowWriter::Inserts(SqliteConnection& connection, std::string table) {
  return {connection, Kind::Insert, std::move(table)};
}

RowWriter RowWriter::Updates(SqliteConnection& connection, std::string table) {
  return {connection, Kind::Update, std::move(table)};
}

void RowWriter::Prepare(std::initializer_list<NamedValue> row) {
  for (const NamedValue& field : row) columns_.emplace_back(field.column);
  statement_ = connection_.Prepare(kind_ == Kind::Insert ? InsertStatement(table_, columns_)
                                                         : UpdateStatement(table_, columns_));
}

void RowWriter::Write(std::initializer_list<NamedValue> row) {
  if (!statement_) Prepare(row);
  if (!std::ranges::equal(row, columns_, {}, &NamedValue::column)) {
    throw std::logic_error("the rows of " + table_ + " differ in their columns");
  }
  int parameter = 0;
  for (const NamedValue& field : row) {
    ++parameter;
    std::visit([&](const auto& value) { statement_->Bind(parameter, value); }, field.value);
  }
  statement_->Run();
}

}  // namespace koru::sample
