#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/SqlLexer.h"

namespace koru::test {

/// A batch for the suite's server as its words, literals and symbols, without comments.
class ServerBatch {
 public:
  explicit ServerBatch(std::string text);

  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] std::size_t Size() const { return tokens_.size(); }
  /// Empty after the end.
  [[nodiscard]] std::string Word(std::size_t at) const;
  [[nodiscard]] SqlToken Token(std::size_t at) const;
  /// Whether these words begin at `at`, regardless of case; an empty one matches any word.
  [[nodiscard]] bool Has(std::size_t at, std::initializer_list<std::string_view> words) const;
  /// The text from the first of the words to the last.
  [[nodiscard]] std::string Between(std::size_t first, std::size_t afterLast) const;
  /// The place of the first comma or closing parenthesis from `at` on that no parenthesis after `at`
  /// encloses.
  [[nodiscard]] std::size_t EndOfPart(std::size_t at) const;
  /// The statements that semicolons separate, without empty ones.
  [[nodiscard]] std::vector<ServerBatch> Parts() const;
  /// The place of the parenthesis that closes the one at `open`.
  [[nodiscard]] std::size_t Closing(std::size_t open) const;

 private:
  std::string text_;
  std::vector<SqlToken> tokens_;
};

}  // namespace koru::test
