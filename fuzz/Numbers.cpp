// Numbers agree with the C library's: what a number's text says, and what its 15 digits round to.

#include "platform/text/Numbers.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>

#include "fuzz/Require.h"

namespace {

using koru::fuzz::Require;

/// The 15 digits of the few doubles beyond it may say more than a double holds.
constexpr double kLargest = 1e300;

std::string Printed(const char* format, double number) {
  std::array<char, 64> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), format, number));  // NOLINT(*-vararg)
  return text.data();
}

/// The number that its 15 significant digits say.
double FifteenDigits(double number) { return std::strtod(Printed("%.14e", number).c_str(), nullptr); }

/// Rounds half to even on the 15 digits, by hand.
double Rounded(double number, int decimals) {
  const std::string printed = Printed("%.14e", std::fabs(number));
  const int exponent = std::stoi(printed.substr(printed.find('e') + 1));
  std::string digits = printed.substr(0, 1) + printed.substr(2, 14);
  const int kept = exponent + 1 + decimals;  // digits before the place that is rounded
  if (kept >= 15) return FifteenDigits(number);
  if (kept < 0) return 0;
  const std::string cut = digits.substr(static_cast<std::size_t>(kept));
  digits.resize(static_cast<std::size_t>(kept));
  const std::string half = "5" + std::string(cut.size() - 1, '0');
  const bool odd = !digits.empty() && (digits.back() - '0') % 2 == 1;
  const bool up = cut > half || (cut == half && odd);
  const auto whole = (digits.empty() ? 0LL : std::stoll(digits)) + (up ? 1 : 0);
  const std::string text = std::to_string(whole) + "e" + std::to_string(-decimals);
  return std::copysign(std::strtod(text.c_str(), nullptr), number);
}

void CheckNumber(double number) {
  const std::string text = koru::NumberText(number);
  Require(std::strtod(text.c_str(), nullptr) == FifteenDigits(number), "a text says the 15 digits");
  Require(koru::Val(text) == FifteenDigits(number), "a text is read as the number that it says");
  Require(koru::NumberText(koru::Val(text)) == text, "a number that was read has the same text");
  Require(text != "-0", "zero has no sign");
  for (int decimals = 0; decimals <= 9; ++decimals) {
    Require(FifteenDigits(koru::Round(number, decimals)) == Rounded(number, decimals),
            "half is rounded to even");
  }
}

void CheckText(std::string_view text) {
  const double read = koru::Val(text);
  Require(std::isfinite(read), "what is read is a number");
  Require(koru::Val(" \t" + std::string(text)) == read, "blanks before a number do not count");
  if (std::fabs(read) > kLargest) return;
  Require(koru::Val(koru::NumberText(read)) == FifteenDigits(read), "what was read can be written and read");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckText(koru::fuzz::TextOf(data, size));
  double number = 0;
  if (size >= sizeof number) std::memcpy(&number, data, sizeof number);
  if (std::isfinite(number) && std::fabs(number) < kLargest && (number == 0 || std::fabs(number) > 1e-300))
    CheckNumber(number);
  const double ticks = std::isfinite(number) ? std::trunc(std::fmod(number, 1e12)) : 0;
  CheckNumber(ticks / 1000);  // quantities as they are typed
  return 0;
}
