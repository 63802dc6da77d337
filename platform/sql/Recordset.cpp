#include "platform/sql/Recordset.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The bytes of a number as it is in memory.
template <class Number>
std::string_view BytesOf(const Number& number) {
  return {reinterpret_cast<const char*>(&number), sizeof number};
}

template <class Number>
Number NumberIn(std::string_view bytes) {
  Number number{};
  std::memcpy(&number, bytes.data(), sizeof number);
  return number;
}

}  // namespace

std::size_t Recordset::ColumnIndex(std::string_view name) const {
  const auto found = std::find_if(columns_.begin(), columns_.end(),
                                  [&](const std::string& column) { return EqualsNoCase(column, name); });
  if (found == columns_.end()) {
    throw DatabaseError("Item cannot be found in the collection: " + std::string(name), 3265, {});
  }
  return static_cast<std::size_t>(found - columns_.begin());
}

Value Recordset::FieldOf(std::size_t record, std::size_t column) const {
  if (column >= columns_.size()) throw std::out_of_range("a recordset has no such column");
  if (record >= recordCount_ || blocks_[record / kRecordsInBlock].ends.empty())
    throw DatabaseError("The recordset has no current record.", 3021, {});
  const Block& block = blocks_[record / kRecordsInBlock];
  const std::size_t field = record % kRecordsInBlock * columns_.size() + column;
  const std::size_t begin = field == 0 ? 0 : block.ends[field - 1];
  if (block.ends[field] == begin) return {};
  const auto kind = static_cast<Kind>(block.bytes[begin]);
  const std::string_view bytes(block.bytes.data() + begin + 1, block.ends[field] - begin - 1);
  if (kind == Kind::Integer) return Value(NumberIn<std::int64_t>(bytes));
  if (kind == Kind::Real) return Value(NumberIn<double>(bytes));
  return Value(bytes);
}

Value Recordset::Field(std::size_t column) const { return FieldOf(current_, column); }

void Recordset::MoveNextAndForget() {
  MoveNext();
  if (current_ % kRecordsInBlock == 0 && current_ > 0) blocks_[current_ / kRecordsInBlock - 1] = {};
}

void Recordset::AppendNull() { EndField(BlockToAppendTo()); }
void Recordset::AppendInteger(std::int64_t number) { Append(Kind::Integer, BytesOf(number)); }
void Recordset::AppendReal(double number) { Append(Kind::Real, BytesOf(number)); }
void Recordset::AppendText(std::string_view text) { Append(Kind::Text, text); }

void Recordset::Append(Kind kind, std::string_view bytes) {
  Block& block = BlockToAppendTo();
  block.bytes += static_cast<char>(kind);
  block.bytes += bytes;
  EndField(block);
}

Recordset::Block& Recordset::BlockToAppendTo() {
  if (fields_ == 0 && recordCount_ % kRecordsInBlock == 0) {
    if (!blocks_.empty()) {
      blocks_.back().bytes.shrink_to_fit();
      blocks_.back().ends.shrink_to_fit();
    }
    blocks_.emplace_back().ends.reserve(columns_.size());
  }
  return blocks_.back();
}

void Recordset::EndField(Block& block) {
  if (block.bytes.size() > std::numeric_limits<std::uint32_t>::max())
    throw std::length_error("256 records hold at most 4 GB");
  block.ends.push_back(static_cast<std::uint32_t>(block.bytes.size()));
  if (++fields_ < columns_.size()) return;
  fields_ = 0;
  ++recordCount_;
}

}  // namespace koru
