#include "tools/tds-stand-in/TdsReply.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <vector>

#include "platform/text/Text.h"
#include "tools/tds-stand-in/ServerDays.h"
#include "tools/tds-stand-in/TdsWire.h"

namespace koru::test {
namespace {

enum Token : std::uint8_t {
  kReturnValue = 0x79,
  kColumns = 0x81,
  kError = 0xAA,
  kSignedIn = 0xAD,
  kRow = 0xD1
};
/// The token that ends the answer of a statement, of a procedure.
enum End : std::uint8_t { kDone = 0xFD, kProcedureDone = 0xFE };
/// The flags of that token.
enum Status : std::uint16_t { kFinal = 0, kMore = 1, kFailed = 2, kCounted = 0x10, kCancelled = 0x20 };

/// The time of day, which is always midnight here.
constexpr std::uint32_t kNoon = 12 * 3600 * 300;

/// Of a message, in UTF-16 units; the server cuts longer ones as well.
constexpr std::size_t kMaxMessageLength = 2047;

std::string Byte(std::uint8_t byte) { return {static_cast<char>(byte)}; }

std::string Ended(End end, Status status, std::uint64_t rows = 0) {
  return Byte(end) + Little(status, 2) + Little(0, 2) + Little(rows, 8);
}

Status With(Status status, MoreResults more) {
  return more == MoreResults::Yes ? static_cast<Status>(status | kMore) : status;
}

/// One column of a selection: how its type and its values are written.
class Column {
 public:
  Column(const Recordset& rows, std::size_t place) : name_(rows.Columns()[place]), place_(place) {
    const bool isNamedAsDay = IsNamedAsDay(name_);
    bool isDay = isNamedAsDay;
    for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
      const Value value = rows.FieldOf(row, place);
      if (value.IsNull()) continue;
      kind_ = std::max(kind_, KindOf(value));
      isDay = isDay && value.IsText() && DayNumber(value.Text());
    }
    if (isDay) kind_ = Kind::Day;
  }

  [[nodiscard]] std::string Described() const {
    const std::string name = Wide(name_);
    return Little(0, 4) + Little(kMayBeNull, 2) + Type() + Little(name.size() / 2, 1) + name;
  }

  [[nodiscard]] std::string Written(const Recordset& rows, std::size_t row) const {
    const Value value = rows.FieldOf(row, place_);
    if (kind_ == Kind::Text) return value.IsNull() ? Little(~std::uint64_t{0}, 8) : Long(Wide(value.Text()));
    if (value.IsNull()) return Byte(0);
    return Byte(8) + Fixed(value);
  }

 private:
  enum class Kind { Whole, Real, Text, Day };
  static constexpr std::uint16_t kMayBeNull = 1;

  static Kind KindOf(const Value& value) {
    if (value.IsText()) return Kind::Text;
    return value.IsWhole() ? Kind::Whole : Kind::Real;
  }

  [[nodiscard]] std::string Type() const {
    switch (kind_) {
      case Kind::Whole:
        return "\x26\x08";
      case Kind::Real:
        return "\x6D\x08";
      case Kind::Day:
        return "\x6F\x08";
      case Kind::Text:
        break;
    }
    // nvarchar(max), in the default collation of a server.
    return "\xE7\xFF\xFF" + std::string("\x09\x04\xD0\0\x34", 5);
  }

  [[nodiscard]] std::string Fixed(const Value& value) const {
    if (kind_ == Kind::Whole)
      return Little(static_cast<std::uint64_t>(static_cast<std::int64_t>(value.Number())), 8);
    if (kind_ == Kind::Real) return Little(std::bit_cast<std::uint64_t>(value.Number()), 8);
    return Little(static_cast<std::uint32_t>(*DayNumber(value.Text())), 4) + Little(kNoon, 4);
  }

  /// A text of any length, in one piece.
  static std::string Long(const std::string& bytes) {
    const std::string whole = Little(bytes.size(), 8);
    if (bytes.empty()) return whole + Little(0, 4);
    return whole + Little(bytes.size(), 4) + bytes + Little(0, 4);
  }

  std::string name_;
  std::size_t place_;
  Kind kind_ = Kind::Whole;
};

}  // namespace

std::string GreetingReply() { return {"\0\0\x0B\0\x06\x01\0\x11\0\x01\xFF\x0F\0\0\0\0\0\x02", 18}; }

std::string SignedInReply() {
  const std::string name = Wide("Scripted");
  const std::string body = std::string("\x01\x74\0\0\x04\x08", 6) + name + std::string("\x0F\0\0\0", 4);
  return Byte(kSignedIn) + Little(body.size(), 2) + body + Ended(kDone, kFinal);
}

std::string DoneReply(std::optional<std::uint64_t> written, MoreResults more) {
  return Ended(kDone, With(written ? kCounted : kFinal, more), written.value_or(0));
}

std::string ReturnedReply(std::int32_t value) {
  return Byte(kReturnValue) + Little(static_cast<std::uint32_t>(value), 4) + Ended(kProcedureDone, kFinal);
}

std::string RefusedReply(std::int32_t number, const std::string& text, MoreResults more) {
  const std::string wide = Wide(Utf16Prefix(text, kMaxMessageLength));
  const std::string body = Little(static_cast<std::uint32_t>(number), 4) + std::string("\x01\x10", 2) +
                           Little(wide.size() / 2, 2) + wide + std::string(2, '\0') + Little(1, 4);
  return Byte(kError) + Little(body.size(), 2) + body + Ended(kDone, With(kFailed, more));
}

std::string CancelledReply() { return Ended(kDone, kCancelled); }

std::string RowsReply(const Recordset& rows, MoreResults more) {
  std::vector<Column> columns;
  for (std::size_t place = 0; place < rows.Columns().size(); ++place) columns.emplace_back(rows, place);
  std::string reply = Byte(kColumns) + Little(columns.size(), 2);
  for (const Column& column : columns) reply += column.Described();
  for (std::size_t row = 0; row < rows.RecordCount(); ++row) {
    reply += Byte(kRow);
    for (const Column& column : columns) reply += column.Written(rows, row);
  }
  return reply + Ended(kDone, With(kCounted, more), rows.RecordCount());
}

}  // namespace koru::test
