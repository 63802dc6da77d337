#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/text/Date.h"

namespace koru {

/// One field of a record. NULL is kept apart from 0 and from the empty text. A text is seen, not owned: it is
/// valid as long as the recordset that it comes from.
class Value {
 public:
  Value() = default;  ///< NULL
  explicit Value(std::int64_t number) : value_(number) {}
  explicit Value(double number) : value_(number) {}
  explicit Value(std::string_view text) : value_(text) {}

  [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }

  [[nodiscard]] bool IsText() const { return std::holds_alternative<std::string_view>(value_); }
  [[nodiscard]] bool IsWhole() const { return std::holds_alternative<std::int64_t>(value_); }

  /// As text: NULL is empty, a number its default text.
  [[nodiscard]] std::string Text() const;
  /// As a number: NULL is 0, a text its leading number.
  [[nodiscard]] double Number() const;
  /// As a key or another whole number, rounded half to even; throws OverflowError beyond 32 bits.
  [[nodiscard]] std::int32_t Integer() const;
  /// As a day: empty when NULL or not a date.
  [[nodiscard]] std::optional<Date> AsDate() const;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string_view> value_;
};

}  // namespace koru
