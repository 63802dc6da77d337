#include "adapters/sqlite/WhereClause.h"

namespace koru {
namespace {

/// The last `where` before `at` on the same level of parentheses.
std::optional<std::size_t> WhereBefore(const StatementTokens& tokens, std::size_t at) {
  int closed = 0;
  while (at-- > 0) {
    if (tokens[at].Is(")")) ++closed;
    if (tokens[at].Is("(") && closed-- == 0) return {};
    if (closed == 0 && tokens[at].Is("where")) return at;
  }
  return {};
}

bool EndsTerm(const StatementToken& token) {
  return token.kind == SqlTokenKind::End || token.Is("and") || token.Is("order") || token.Is("group") ||
         token.Is(")");
}

}  // namespace

std::optional<std::size_t> WhereOfTerm(const StatementTokens& tokens, std::size_t begin, std::size_t end) {
  if (begin == 0 || !(tokens[begin - 1].Is("where") || tokens[begin - 1].Is("and"))) return {};
  if (!EndsTerm(At(tokens, end))) return {};
  const std::optional<std::size_t> where = WhereBefore(tokens, begin);
  if (!where) return {};
  const bool joinedOtherwise =
      LevelHasAny(tokens, *where, EndOfLevel(tokens, end),
                  {"or", "between", "case", "having", "union", "except", "intersect"});
  return joinedOtherwise ? std::nullopt : where;
}

std::vector<std::string> TablesOf(const StatementTokens& tokens, std::size_t where) {
  std::vector<std::string> tables;
  for (std::size_t at = where; at >= 2 && tokens[at - 1].kind == SqlTokenKind::Word; at -= 2) {
    tables.insert(tables.begin(), tokens[at - 1].text);
    if (tokens[at - 2].Is("from") || tokens[at - 2].Is("delete")) return tables;
    if (!tokens[at - 2].Is(",")) break;
  }
  return {};
}

}  // namespace koru
