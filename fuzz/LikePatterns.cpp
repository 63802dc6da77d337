// `like` agrees with a matcher that is written from the rules and tries everything. The pattern ends at the
// first line feed of an input; the text is the rest.

#include "adapters/sqlite/LikePattern.h"

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/Require.h"
#include "platform/text/PersianText.h"
#include "platform/text/Text.h"

namespace {

using koru::fuzz::Require;
using Characters = std::u32string_view;

std::u32string Folded(std::string_view text) {
  std::u32string folded;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = koru::NextCharacter(text, at);
    if (c != koru::kZeroWidthNonJoiner) folded += koru::FoldCharacter(c);
  }
  return folded;
}

bool Before(char32_t a, char32_t b) {
  std::string first;
  std::string second;
  koru::AppendCharacter(first, a);
  koru::AppendCharacter(second, b);
  return koru::ComparePersian(first, second) <= 0;
}

/// Whether `c` is one of the characters and ranges of a set, without its brackets and `^`.
bool IsIn(Characters set, char32_t c) {
  while (!set.empty()) {
    const bool isRange = set.size() > 2 && set[1] == U'-';
    const char32_t last = set[isRange ? 2 : 0];
    if (set[0] == last ? c == last : Before(set[0], c) && Before(c, last)) return true;
    set.remove_prefix(isRange ? 3 : 1);
  }
  return false;
}

/// The length of the set that the pattern begins with; 0 for one that is never closed.
std::size_t SetLength(Characters pattern) {
  const std::size_t close = pattern.find(U']');
  return close == Characters::npos ? 0 : close + 1;
}

bool FitsSet(Characters set, char32_t c) {  // with its brackets
  set = set.substr(1, set.size() - 2);
  const bool negated = set.starts_with(U'^');
  if (negated) set.remove_prefix(1);
  return IsIn(set, c) != negated;
}

/// Row by row of pattern elements: from which places of the text the rest of the pattern fits.
bool Matches(Characters pattern, Characters text) {
  std::vector<bool> reached(text.size() + 1, false);
  reached[0] = true;
  while (!pattern.empty()) {
    std::vector<bool> next(text.size() + 1, false);
    std::size_t length = 1;
    if (pattern[0] == U'[') length = SetLength(pattern);
    if (length == 0) return false;
    for (std::size_t at = 0; at <= text.size(); ++at) {
      if (pattern[0] == U'%') {
        next[at] = reached[at] || (at > 0 && next[at - 1]);
      } else if (at > 0 && reached[at - 1]) {
        const char32_t c = text[at - 1];
        next[at] = pattern[0] == U'_' ||
                   (pattern[0] == U'[' ? FitsSet(pattern.substr(0, length), c) : c == pattern[0]);
      }
    }
    reached = std::move(next);
    pattern.remove_prefix(length);
  }
  const std::size_t trimmed =
      text.find_last_not_of(U' ') == Characters::npos ? 0 : text.find_last_not_of(U' ') + 1;
  return std::find(reached.begin() + static_cast<std::ptrdiff_t>(trimmed), reached.end(), true) !=
         reached.end();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kMaxSize = 512;
  const std::string_view input = koru::fuzz::TextOf(data, std::min(size, kMaxSize));
  const std::string_view pattern = input.substr(0, input.find('\n'));
  const std::string_view text = input.substr(std::min(input.size(), pattern.size() + 1));
  Require(koru::LikePattern(pattern).Matches(text) == Matches(Folded(pattern), Folded(text)),
          "both matchers agree");
  return 0;
}
