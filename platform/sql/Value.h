#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/text/Date.h"

namespace koru {

/// One field of a record. NULL is distinct from 0 and from the empty text. A text is a view into the
/// recordset and valid as long as that.
class Value {
 public:
  Value() = default;  ///< NULL
  explicit Value(std::int64_t number) : value_(number) {}
  explicit Value(double number) : value_(number) {}
  explicit Value(std::string_view text) : value_(text) {}

  [[nodiscard]] bool IsNull() const { return std::holds_alternative<std::monostate>(value_); }

  /// What a value that is not NULL is: a text, a whole number, or a number with decimals. The component reads
  /// Text, Number and so on; hosts and tools that pass values on need the type.
  [[nodiscard]] bool IsText() const { return std::holds_alternative<std::string_view>(value_); }
  [[nodiscard]] bool IsWhole() const { return std::holds_alternative<std::int64_t>(value_); }

  /// As text: NULL gives an empty text, a number its default text (NumberText).
  [[nodiscard]] std::string Text() const;
  /// As a number: NULL gives 0, a text its leading number (Val).
  [[nodiscard]] double Number() const;
  /// As an integer, rounded half to even. Throws OverflowError outside 32 bits.
  [[nodiscard]] std::int32_t Integer() const;
  /// As a date; empty when NULL or not a date.
  [[nodiscard]] std::optional<Date> AsDate() const;

 private:
  std::variant<std::monostate, std::int64_t, double, std::string_view> value_;
};

}  // namespace koru
