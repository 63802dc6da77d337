#include "siblings/report/ReportNumbers.h"

#include <algorithm>

#include "platform/text/DigitGroups.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr char32_t kPersianZero = 0x06F0;
constexpr char32_t kPersianGroup = 0x066C;
constexpr char32_t kPersianPoint = 0x066B;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLatinLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

void AppendDigit(std::string& text, char digit) {
  AppendCharacter(text, kPersianZero + static_cast<char32_t>(digit - '0'));
}

}  // namespace

std::string ReportNumber(double number, int decimals) {
  return WithGroups(NumberText(Round(number, decimals)));
}

std::string PersianNumber(std::string_view number) {
  std::string shown;
  for (const char c : number) {
    if (IsDigit(c))
      AppendDigit(shown, c);
    else if (c == ',')
      AppendCharacter(shown, kPersianGroup);
    else if (c == '.')
      AppendCharacter(shown, kPersianPoint);
    else
      shown += c;
  }
  return shown;
}

std::string PersianDigits(std::string_view text) {
  if (std::any_of(text.begin(), text.end(), IsLatinLetter)) return std::string(text);
  std::string shown;
  for (const char c : text) {
    if (IsDigit(c))
      AppendDigit(shown, c);
    else
      shown += c;
  }
  return shown;
}

}  // namespace koru
