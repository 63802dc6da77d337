#include "platform/sql/Value.h"

#include <limits>

#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"

namespace koru {

std::string Value::Text() const {
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) return std::to_string(*integer);
  if (const auto* real = std::get_if<double>(&value_)) return NumberText(*real);
  if (const auto* text = std::get_if<std::string_view>(&value_)) return std::string(*text);
  return {};
}

double Value::Number() const {
  if (const auto* integer = std::get_if<std::int64_t>(&value_)) return static_cast<double>(*integer);
  if (const auto* real = std::get_if<double>(&value_)) return *real;
  if (const auto* text = std::get_if<std::string_view>(&value_)) return Val(*text);
  return 0;
}

std::int32_t Value::Integer() const {
  const double whole = Round(Number(), 0);
  if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max()) {
    throw OverflowError("عدد " + Text() + " از اندازة يك شماره بزرگتر است.");
  }
  return static_cast<std::int32_t>(whole);
}

std::optional<Date> Value::AsDate() const {
  const auto* text = std::get_if<std::string_view>(&value_);
  return text == nullptr ? std::nullopt : ParseIso(*text);
}

}  // namespace koru
