#include "platform/sql/Recordset.h"

#include <algorithm>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {

std::size_t Recordset::ColumnIndex(std::string_view name) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(),
                                  [&](const std::string& column) { return EqualsNoCase(column, name); });
  if (found == columns_.end()) {
    throw DatabaseError("Item cannot be found in the collection: " + std::string(name), 3265, {});
  }
  return static_cast<std::size_t>(found - columns_.begin());
}

Value Recordset::FieldOf(std::size_t record, std::size_t column) const {
  if (record >= recordCount_) throw DatabaseError("The recordset has no current record.", 3021, {});
  const StoredField& field = fields_.at(record * columns_.size() + column);
  if (const auto* integer = std::get_if<std::int64_t>(&field)) return Value(*integer);
  if (const auto* real = std::get_if<double>(&field)) return Value(*real);
  if (const auto* text = std::get_if<TextPlace>(&field)) {
    return Value(std::string_view(texts_).substr(text->begin, text->size));
  }
  return {};
}

Value Recordset::Field(std::size_t column) const { return FieldOf(current_, column); }

void Recordset::AppendNull() { Append(std::monostate{}); }
void Recordset::AppendInteger(std::int64_t number) { Append(number); }
void Recordset::AppendReal(double number) { Append(number); }
void Recordset::AppendText(std::string_view text) {
  Append(TextPlace{texts_.size(), text.size()});
  texts_ += text;
}

void Recordset::Append(StoredField field) {
  fields_.push_back(field);
  recordCount_ = fields_.size() / columns_.size();
}

}  // namespace koru
