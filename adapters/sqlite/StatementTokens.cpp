#include "adapters/sqlite/StatementTokens.h"

#include <algorithm>
#include <iterator>

#include "platform/text/Text.h"

namespace koru {

bool StatementToken::Is(std::string_view word) const {
  const bool canBe = kind == SqlTokenKind::Word || kind == SqlTokenKind::Symbol;
  return canBe && EqualsNoCase(text, word);
}

StatementTokens ReadTokens(std::string_view normalized) {
  StatementTokens tokens;
  SqlLexer lexer(normalized);
  std::size_t endOfLast = 0;
  int literals = 0;
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    const bool isLiteral = token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::Parameter;
    std::string text = isLiteral ? "?" + std::to_string(++literals) : std::string(lexer.TextOf(token));
    tokens.push_back({token.kind, std::move(text), token.begin > endOfLast});
    endOfLast = token.end;
  }
  return tokens;
}

std::string JoinTokens(const StatementTokens& tokens) {
  std::string joined;
  for (const StatementToken& token : tokens) {
    if (token.spaceBefore && !joined.empty()) joined += ' ';
    joined += token.text;
  }
  return joined;
}

void Replace(StatementTokens& tokens, std::size_t begin, std::size_t end, const StatementTokens& with) {
  const auto at = [&](std::size_t index) {
    return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index));
  };
  tokens.insert(tokens.erase(at(begin), at(end)), with.begin(), with.end());
}

const StatementToken& At(const StatementTokens& tokens, std::size_t at) {
  static const StatementToken kNone{SqlTokenKind::End, {}, false};
  return at < tokens.size() ? tokens[at] : kNone;
}

std::size_t EndOfLevel(const StatementTokens& tokens, std::size_t from) {
  int opened = 0;
  std::size_t at = from;
  for (; at < tokens.size(); ++at) {
    if (tokens[at].Is("(")) ++opened;
    if (tokens[at].Is(")") && opened-- == 0) break;
  }
  return at;
}

bool LevelHasAny(const StatementTokens& tokens, std::size_t from, std::size_t end,
                 const std::vector<std::string_view>& words) {
  int opened = 0;
  for (std::size_t at = from; at < end; ++at) {
    if (tokens[at].Is("(")) ++opened;
    if (tokens[at].Is(")")) --opened;
    const bool isOne = opened == 0 && std::any_of(words.begin(), words.end(),
                                                  [&](std::string_view word) { return tokens[at].Is(word); });
    if (isOne) return true;
  }
  return false;
}

}  // namespace koru
