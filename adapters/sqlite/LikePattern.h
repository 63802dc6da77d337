#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The pattern of a `like`, read once: `%` stands for any text, `_` for one character, `[set]` for one of a
/// set with ranges (`[a-f0-9]`), `[^set]` for one of the others; a wildcard in a set stands for itself, and a
/// set that is never closed matches nothing. Characters compare as FoldCharacter says, zero-width non-joiners
/// count for nothing. Blanks at the end of the pattern must be there; blanks at the end of the text may be.
class LikePattern {
 public:
  explicit LikePattern(std::string_view pattern);
  [[nodiscard]] bool Matches(std::string_view text) const;

 private:
  struct Range {
    char32_t first;
    char32_t last;
  };
  struct Element {
    enum class Kind { AnyText, AnyCharacter, Character, Set };
    Kind kind = Kind::AnyText;
    char32_t character = 0;
    bool negated = false;
    std::vector<Range> ranges;
  };
  /// Reads the set whose `[` stands before `at`; answers the place behind its `]`, or the end when there is
  /// none.
  std::size_t ReadSet(const std::u32string& pattern, std::size_t at);
  [[nodiscard]] static bool Fits(const Element& element, char32_t character);

  std::vector<Element> elements_;
};

}  // namespace koru
