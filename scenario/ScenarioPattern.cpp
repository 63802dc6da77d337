#include "scenario/ScenarioPattern.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include "platform/text/Date.h"
#include "scenario/KeyNames.h"

namespace koru {
namespace {

constexpr std::string_view kRows = "ROWS";
constexpr std::string_view kRepeated = "...";

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    if (end != 0 && !text.empty()) parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

bool IsNumber(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size();
}

bool IsName(std::string_view text) {
  const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  const auto belongs = [&](char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '_' || c == '.'; };
  return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), belongs);
}

bool MatchesOne(std::string_view kind, const ScenarioWord& word) {
  if (kind == "TEXT") return word.quoted;
  if (word.quoted) return false;
  if (kind == "NUMBER") return IsNumber(word.text);
  if (kind == "DATE") return ParseSolar(word.text).has_value();
  if (kind == "NAME") return IsName(word.text);
  if (kind == "KEY") return ParseKey(word.text).has_value();
  return kind == word.text;
}

bool MatchesWord(std::string_view kinds, const ScenarioWord& word) {
  const auto alternatives = Split(kinds, '|');
  return std::any_of(alternatives.begin(), alternatives.end(),
                     [&](std::string_view kind) { return MatchesOne(kind, word); });
}

}  // namespace

std::vector<std::string_view> PatternWords(std::string_view pattern) {
  auto words = Split(pattern, ' ');
  if (words.back() == kRows) words.pop_back();
  return words;
}

bool TakesRows(std::string_view pattern) { return pattern.ends_with(kRows); }

bool MatchesPattern(std::string_view pattern, const std::vector<ScenarioWord>& words) {
  const auto kinds = PatternWords(pattern);
  // A word that may repeat takes as many of the scenario's words as the rest of the pattern leaves.
  const auto repeated = std::find_if(kinds.begin(), kinds.end(),
                                     [](std::string_view kind) { return kind.ends_with(kRepeated); });
  if (repeated == kinds.end() ? words.size() != kinds.size() : words.size() < kinds.size()) return false;
  const std::size_t extra = words.size() - kinds.size();
  std::size_t at = 0;
  for (auto kind = kinds.begin(); kind != kinds.end(); ++kind) {
    const bool repeats = kind == repeated;
    const std::string_view one = repeats ? kind->substr(0, kind->size() - kRepeated.size()) : *kind;
    for (std::size_t i = 0; i < (repeats ? extra + 1 : 1); ++i, ++at) {
      if (!MatchesWord(one, words[at])) return false;
    }
  }
  return true;
}

}  // namespace koru
