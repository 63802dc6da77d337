#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/SqlLexer.h"

namespace koru {

/// One token of a statement under translation. A literal is a numbered parameter `?3`: of kind String for a
/// text, of kind Parameter for a number.
struct StatementToken {
  SqlTokenKind kind = SqlTokenKind::Word;
  std::string text;
  bool spaceBefore = true;

  /// Whether it is that keyword, name or symbol; case does not matter.
  [[nodiscard]] bool Is(std::string_view word) const;
};

using StatementTokens = std::vector<StatementToken>;

/// The tokens of a normalized text (NormalizedStatement::text), its literals numbered from 1.
[[nodiscard]] StatementTokens ReadTokens(std::string_view normalized);
[[nodiscard]] std::string JoinTokens(const StatementTokens& tokens);

/// Replaces the tokens [begin, end) by `with`.
void Replace(StatementTokens& tokens, std::size_t begin, std::size_t end, const StatementTokens& with);

/// The token at `at`; of kind End past the last one.
[[nodiscard]] const StatementToken& At(const StatementTokens& tokens, std::size_t at);

/// The index of the first `)` from `from` on whose `(` is before `from`, or the number of tokens. For the
/// index after a `(`, that is the closing one.
[[nodiscard]] std::size_t EndOfLevel(const StatementTokens& tokens, std::size_t from);

/// Whether one of `words` is in [from, end), outside parentheses opened there.
[[nodiscard]] bool LevelHasAny(const StatementTokens& tokens, std::size_t from, std::size_t end,
                               const std::vector<std::string_view>& words);

}  // namespace koru
