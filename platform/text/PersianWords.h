#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// The words of a text that a user searches for, each to be found anywhere in one of several texts. Letter
/// forms, kinds of digits, case and zero-width non-joiners make no difference (PersianText.h).
class PersianWords {
 public:
  PersianWords() = default;
  explicit PersianWords(std::string_view typed);

  [[nodiscard]] bool IsEmpty() const { return words_.empty(); }
  /// Whether each word occurs in at least one of the texts; always true without words.
  [[nodiscard]] bool AreIn(std::initializer_list<std::string_view> texts) const;

 private:
  [[nodiscard]] bool IsIn(std::u32string_view word, std::initializer_list<std::string_view> texts) const;

  std::vector<std::u32string> words_;
  std::u32string folded_;  ///< the folded forms of the characters of up to two bytes, computed once
};

}  // namespace koru
