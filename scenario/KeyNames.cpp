#include "scenario/KeyNames.h"

#include <array>
#include <cctype>
#include <charconv>
#include <utility>

#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr int kF1 = 112;

constexpr std::array<std::pair<std::string_view, int>, 17> kNamedKeys = {{{"Backspace", 8},
                                                                          {"Tab", 9},
                                                                          {"Enter", 13},
                                                                          {"Escape", 27},
                                                                          {"Space", 32},
                                                                          {"PageUp", 33},
                                                                          {"PageDown", 34},
                                                                          {"End", 35},
                                                                          {"Home", 36},
                                                                          {"Left", 37},
                                                                          {"Up", 38},
                                                                          {"Right", 39},
                                                                          {"Down", 40},
                                                                          {"Insert", 45},
                                                                          {"Delete", 46},
                                                                          {"Plus", 107},
                                                                          {"Minus", 109}}};

constexpr std::array<std::pair<std::string_view, int>, 3> kHeldKeys = {
    {{"Shift+", 1}, {"Ctrl+", 2}, {"Alt+", 4}}};

std::optional<int> KeyCode(std::string_view name) {
  for (const auto& [known, code] : kNamedKeys) {
    if (EqualsNoCase(name, known)) return code;
  }
  const auto first = static_cast<unsigned char>(name.empty() ? '\0' : name.front());
  if (name.size() == 1 && std::isalnum(first) != 0) return std::toupper(first);
  int number = 0;
  if (std::toupper(first) != 'F') return std::nullopt;
  const auto [end, error] = std::from_chars(name.data() + 1, name.data() + name.size(), number);
  const bool isFunctionKey =
      error == std::errc() && end == name.data() + name.size() && number >= 1 && number <= 12;
  return isFunctionKey ? std::optional(kF1 + number - 1) : std::nullopt;
}

}  // namespace

std::optional<KeyPress> ParseKey(std::string_view name) {
  KeyPress press;
  for (auto held = kHeldKeys.begin(); held != kHeldKeys.end();) {
    const auto& [prefix, shift] = *held;
    const bool isHeld = (press.shift & shift) == 0 && EqualsNoCase(name.substr(0, prefix.size()), prefix);
    if (isHeld) {
      press.shift += shift;
      name.remove_prefix(prefix.size());
    }
    held = isHeld ? kHeldKeys.begin() : held + 1;
  }
  const auto code = KeyCode(name);
  if (!code) return std::nullopt;
  press.key = *code;
  return press;
}

}  // namespace koru
