#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/SqlLexer.h"

namespace koru {

/// One token of a statement under translation. A literal's place is a numbered parameter `?3`: of kind String
/// where a text was written, of kind Parameter where a number was.
struct StatementToken {
  SqlTokenKind kind = SqlTokenKind::Word;
  std::string text;
  bool spaceBefore = true;

  /// Whether it is that keyword, name or symbol, regardless of case.
  [[nodiscard]] bool Is(std::string_view word) const;
};

using StatementTokens = std::vector<StatementToken>;

/// The tokens of a shape (StatementShape::text), its literals numbered from 1.
[[nodiscard]] StatementTokens ReadTokens(std::string_view shape);
[[nodiscard]] std::string JoinTokens(const StatementTokens& tokens);

/// Puts `with` in the place of the tokens [begin, end).
void Replace(StatementTokens& tokens, std::size_t begin, std::size_t end, const StatementTokens& with);

/// The token at `at`; one of kind End where there is none.
[[nodiscard]] const StatementToken& At(const StatementTokens& tokens, std::size_t at);

/// Looking from `from` on: the place of the first `)` that was opened before, or the end of the tokens. For
/// the place behind a `(` that is its closing one.
[[nodiscard]] std::size_t EndOfLevel(const StatementTokens& tokens, std::size_t from);

/// Whether one of `words` stands in [from, end) outside of parentheses that are opened there.
[[nodiscard]] bool LevelHasAny(const StatementTokens& tokens, std::size_t from, std::size_t end,
                               const std::vector<std::string_view>& words);

}  // namespace koru
