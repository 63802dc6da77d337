#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// A parsed `like` pattern: `%` matches any text, `_` one character, `[set]` one character of a set with
/// ranges (`[a-f0-9]`), `[^set]` one of the others. A wildcard in a set is literal, and an unclosed set
/// matches nothing. Characters compare by FoldCharacter, and zero-width non-joiners are ignored. Blanks at
/// the end of the pattern are significant; blanks at the end of the text are not.
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
  /// Reads the set whose `[` is right before `at`; returns the index after its `]`, or the end if it has
  /// none.
  std::size_t ReadSet(const std::u32string& pattern, std::size_t at);
  [[nodiscard]] static bool Fits(const Element& element, char32_t character);

  std::vector<Element> elements_;
};

}  // namespace koru
