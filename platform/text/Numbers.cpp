#include "platform/text/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <optional>

namespace koru {
namespace {

constexpr int kSignificantDigits = 15;
/// The place of the first digit of 0.0001 after the point, as Decimal counts: from there up every text is
/// plain.
constexpr int kSmallestPlainExponent = -3;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Length of the longest prefix of `text` of the form digits [. digits] [e [sign] digits]; 0 if there is
/// none.
std::size_t NumberLength(std::string_view text) {
  std::size_t at = 0;
  std::size_t digits = 0;
  while (at < text.size() && IsDigit(text[at])) ++at, ++digits;
  if (at < text.size() && text[at] == '.') {
    ++at;
    while (at < text.size() && IsDigit(text[at])) ++at, ++digits;
  }
  if (digits == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t end = at + 1;
    if (end < text.size() && (text[end] == '+' || text[end] == '-')) ++end;
    const std::size_t exponent = end;
    while (end < text.size() && IsDigit(text[end])) ++end;
    if (end > exponent) at = end;
  }
  return at;
}

/// Where in a text Val reads a number, after the blanks and the sign before it.
struct NumberPlace {
  std::size_t begin = 0;
  std::size_t length = 0;  ///< 0: there is no number
};

NumberPlace PlaceOfNumber(std::string_view text) {
  std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  if (text[begin] == '-' || text[begin] == '+') ++begin;
  return {begin, NumberLength(text.substr(begin))};
}

/// The number that a text of at most fifteen digits and nothing else is, as most cells of a counting are;
/// nothing for any other text.
std::optional<double> FewDigits(std::string_view text) {
  if (text.empty() || text.size() > kSignificantDigits) return std::nullopt;
  std::int64_t number = 0;
  for (const char c : text) {
    if (!IsDigit(c)) return std::nullopt;
    number = number * 10 + (c - '0');
  }
  return static_cast<double>(number);
}

/// Whether an unrepresentable number is too small rather than too large.
bool IsTiny(std::string_view number) {
  const std::size_t e = number.find_first_of("eE");
  if (e != std::string_view::npos) return number[e + 1] == '-';
  return number.find_first_of("123456789") > number.find('.');
}

/// A number as 0.d1d2...d15 times ten to the power of `exponent`, without trailing zeros. `digits` is empty
/// for 0.
struct Decimal {
  std::string digits;
  int exponent = 0;
};

Decimal ToDecimal(double magnitude) {
  Decimal decimal;
  if (magnitude == 0) return decimal;
  char text[40];
  // If the shortest text that round-trips has at most fifteen digits, it is also the fifteen-digit text.
  auto written = std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific);
  std::string_view view(text, static_cast<std::size_t>(written.ptr - text));
  if (view.find('e') > kSignificantDigits + 1U || magnitude < std::numeric_limits<double>::min()) {
    written = std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific,
                            kSignificantDigits - 1);
    view = {text, static_cast<std::size_t>(written.ptr - text)};
  }
  const std::size_t e = view.find('e');
  decimal.digits += view[0];
  if (e > 1) decimal.digits += view.substr(2, e - 2);
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  std::string_view exponent = view.substr(e + 1);
  if (exponent.front() == '+') exponent.remove_prefix(1);
  std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.exponent);
  ++decimal.exponent;
  return decimal;
}

/// The double nearest to a decimal that is not 0.
double ToDouble(const Decimal& decimal) {
  const std::string text = "." + decimal.digits + "e" + std::to_string(decimal.exponent);
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string ExponentText(const Decimal& decimal) {
  std::string text(1, decimal.digits[0]);
  if (decimal.digits.size() > 1) text += "." + decimal.digits.substr(1);
  const int exponent = decimal.exponent - 1;
  char tail[16];
  std::snprintf(tail, sizeof tail, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
  return text + tail;
}

std::string PlainText(const Decimal& decimal) {
  const auto count = static_cast<int>(decimal.digits.size());
  if (decimal.exponent <= 0) {
    return "0." + std::string(static_cast<std::size_t>(-decimal.exponent), '0') + decimal.digits;
  }
  const auto whole = static_cast<std::size_t>(decimal.exponent);
  if (decimal.exponent >= count) return decimal.digits + std::string(whole - decimal.digits.size(), '0');
  return decimal.digits.substr(0, whole) + "." + decimal.digits.substr(whole);
}

}  // namespace

double Val(std::string_view text) {
  if (const auto number = FewDigits(text)) return *number;
  const NumberPlace place = PlaceOfNumber(text);
  if (place.length == 0) return 0;
  const bool negative = place.begin > 0 && text[place.begin - 1] == '-';
  text.remove_prefix(place.begin);
  const std::size_t length = place.length;
  double number = 0;
  const auto result = std::from_chars(text.data(), text.data() + length, number);
  if (result.ec == std::errc::result_out_of_range) {
    number = IsTiny(text.substr(0, length)) ? 0 : std::numeric_limits<double>::max();
  }
  return negative && number != 0 ? -number : number;
}

std::size_t NumberPrefix(std::string_view text) {
  const NumberPlace place = PlaceOfNumber(text);
  return place.length == 0 ? 0 : place.begin + place.length;
}

std::string NumberText(double number) {
  if (!std::isfinite(number)) {
    number = std::isnan(number) ? 0 : std::copysign(std::numeric_limits<double>::max(), number);
  }
  const double magnitude = std::fabs(number);
  if (magnitude < 1e15 && magnitude == std::trunc(magnitude)) {
    return std::to_string(static_cast<std::int64_t>(number));
  }
  if (magnitude >= 1 && magnitude < 1e15) {
    // Fast path for counts and money: a shortest text of at most fifteen digits is the result.
    char text[32];
    const char* const end = std::to_chars(text, text + sizeof text, number, std::chars_format::fixed).ptr;
    const std::size_t size = static_cast<std::size_t>(end - text);
    if (size <= kSignificantDigits + (number < 0 ? 2U : 1U)) return {text, size};
  }
  const Decimal decimal = ToDecimal(magnitude);
  const int decimals = static_cast<int>(decimal.digits.size()) - decimal.exponent;
  const bool plain = decimal.exponent <= kSignificantDigits &&
                     (decimals <= kSignificantDigits || decimal.exponent >= kSmallestPlainExponent);
  std::string text = plain ? PlainText(decimal) : ExponentText(decimal);
  if (number < 0) text.insert(text.begin(), '-');
  return text;
}

double Round(double number, int decimals) {
  if (!std::isfinite(number)) return number;
  if (number == std::trunc(number)) return number == 0 ? 0 : number;
  Decimal decimal = ToDecimal(std::fabs(number));
  const int kept = decimal.exponent + decimals;
  if (kept > kSignificantDigits) return number;  // the place lies beyond what the digits say
  if (kept >= static_cast<int>(decimal.digits.size())) return std::copysign(ToDouble(decimal), number);
  if (kept < 0) return 0;
  const auto cut = static_cast<std::size_t>(kept);
  const char next = decimal.digits[cut];
  const bool tie = next == '5' && decimal.digits.size() == cut + 1;
  const bool lastIsOdd = cut > 0 && (decimal.digits[cut - 1] - '0') % 2 != 0;
  const bool up = tie ? lastIsOdd : next >= '5';
  std::int64_t whole = 0;
  std::from_chars(decimal.digits.data(), decimal.digits.data() + cut, whole);
  whole += up ? 1 : 0;
  if (whole == 0) return 0;
  const std::string text = std::to_string(whole) + "e" + std::to_string(-decimals);
  double rounded = 0;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return std::copysign(rounded, number);
}

}  // namespace koru
