#include "adapters/sqlite/LikePattern.h"

#include <algorithm>
#include <utility>

#include "platform/text/PersianText.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

std::u32string Folded(std::string_view text) {
  std::u32string folded;
  folded.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    if (character != kZeroWidthNonJoiner) folded += FoldCharacter(character);
  }
  return folded;
}

/// Whether a character is between two others in Persian order.
bool IsBetween(char32_t first, char32_t character, char32_t last) {
  std::string texts[3];
  AppendCharacter(texts[0], first);
  AppendCharacter(texts[1], character);
  AppendCharacter(texts[2], last);
  return ComparePersian(texts[0], texts[1]) <= 0 && ComparePersian(texts[1], texts[2]) <= 0;
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern) {
  const std::u32string folded = Folded(pattern);
  for (std::size_t at = 0; at < folded.size();) {
    const char32_t character = folded[at++];
    if (character == '[') {
      at = ReadSet(folded, at);
    } else if (character == '%') {
      elements_.push_back({Element::Kind::AnyText, 0, false, {}});
    } else if (character == '_') {
      elements_.push_back({Element::Kind::AnyCharacter, 0, false, {}});
    } else {
      elements_.push_back({Element::Kind::Character, character, false, {}});
    }
  }
}

std::size_t LikePattern::ReadSet(const std::u32string& pattern, std::size_t at) {
  Element set{Element::Kind::Set, 0, false, {}};
  const std::size_t end = pattern.find(U']', at);
  if (end == std::u32string::npos) {
    elements_.push_back(std::move(set));
    return pattern.size();
  }
  if (pattern[at] == '^') {
    set.negated = true;
    ++at;
  }
  while (at < end) {
    const bool isRange = at + 2 < end && pattern[at + 1] == '-';
    set.ranges.push_back({pattern[at], pattern[isRange ? at + 2 : at]});
    at += isRange ? 3 : 1;
  }
  elements_.push_back(std::move(set));
  return end + 1;
}

bool LikePattern::Fits(const Element& element, char32_t character) {
  if (element.kind == Element::Kind::Character) return element.character == character;
  if (element.kind == Element::Kind::AnyCharacter) return true;
  const bool isIn = std::any_of(element.ranges.begin(), element.ranges.end(), [&](const Range& range) {
    return range.first == range.last ? range.first == character
                                     : IsBetween(range.first, character, range.last);
  });
  return isIn != element.negated;
}

bool LikePattern::Matches(std::string_view text) const {
  const std::u32string folded = Folded(text);
  std::size_t at = 0;
  std::size_t next = 0;
  // The last `%` and the end of its text: on a mismatch after it, its text grows by one character.
  std::size_t afterAnyText = std::u32string::npos;
  std::size_t taken = 0;
  while (true) {
    if (next < elements_.size() && elements_[next].kind == Element::Kind::AnyText) {
      if (++next == elements_.size()) return true;
      afterAnyText = next;
      taken = at;
    } else if (next < elements_.size() && at < folded.size() && Fits(elements_[next], folded[at])) {
      ++next;
      ++at;
    } else if (next == elements_.size() && folded.find_first_not_of(U' ', at) == std::u32string::npos) {
      return true;
    } else if (afterAnyText != std::u32string::npos && taken < folded.size()) {
      next = afterAnyText;
      at = ++taken;
    } else {
      return false;
    }
  }
}

}  // namespace koru
