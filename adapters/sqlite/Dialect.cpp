#include "adapters/sqlite/Dialect.h"

#include <iterator>
#include <utility>

#include "adapters/sqlite/InAsExists.h"
#include "adapters/sqlite/KeySelection.h"
#include "adapters/sqlite/OrAsIn.h"
#include "adapters/sqlite/StatementTokens.h"
#include "adapters/sqlite/TrimmedBarcode.h"
#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

auto Place(StatementTokens& tokens, std::size_t at) {
  return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(at));
}

void WriteDeleteFrom(StatementTokens& tokens) {
  if (At(tokens, 0).Is("delete") && !At(tokens, 1).Is("from")) {
    tokens.insert(Place(tokens, 1), {SqlTokenKind::Word, "from", true});
  }
}

/// `select [distinct] top n ...` and `top (n)`: the number moves to the end of its selection.
void WriteTopAsLimit(StatementTokens& tokens) {
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    const StatementToken& before = tokens[at - 1];
    if (!tokens[at].Is("top") || !(before.Is("select") || before.Is("distinct") || before.Is("all")))
      continue;
    const bool inParentheses = At(tokens, at + 1).Is("(") && At(tokens, at + 3).Is(")");
    StatementToken number = At(tokens, inParentheses ? at + 2 : at + 1);
    if (number.kind != SqlTokenKind::Parameter) continue;
    number.spaceBefore = true;
    const std::size_t end = EndOfLevel(tokens, at);
    tokens.insert(Place(tokens, end), {{SqlTokenKind::Word, "limit", true}, number});
    tokens.erase(Place(tokens, at), Place(tokens, at + (inParentheses ? 4 : 2)));
  }
}

void WriteIsnull(StatementTokens& tokens) {
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (tokens[at].Is("isnull") && At(tokens, at + 1).Is("(")) tokens[at].text = "ifnull";
  }
}

bool IsComparison(const StatementToken& token) {
  return token.Is("=") || token.Is("<>") || token.Is("!=") || token.Is("<") || token.Is("<=") ||
         token.Is(">") || token.Is(">=");
}

/// Whether the token at `at` ends, or with the one behind it begins, something other than a plain column.
bool EndsExpression(const StatementTokens& tokens, std::size_t at) {
  return At(tokens, at).kind != SqlTokenKind::Word;
}
bool BeginsExpression(const StatementTokens& tokens, std::size_t at) {
  return At(tokens, at).kind != SqlTokenKind::Word || At(tokens, at + 1).Is("(");
}

void WriteCollation(StatementTokens& tokens) {
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    if (tokens[at].kind != SqlTokenKind::String) continue;
    const bool onTheRight = at >= 2 && IsComparison(tokens[at - 1]) && EndsExpression(tokens, at - 2);
    const bool onTheLeft = IsComparison(At(tokens, at + 1)) && BeginsExpression(tokens, at + 2);
    if (onTheRight || onTheLeft) tokens[at].text += " collate KORU";
  }
}

void RefuseOrderByNumber(const StatementTokens& tokens, std::string_view shape) {
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    if (tokens[at - 1].Is("by") && tokens[at].kind == SqlTokenKind::Parameter) {
      throw DatabaseError("Rows are ordered by the name of a column, not by its number.", kBrokenStatement,
                          std::string(shape));
    }
  }
}

std::string Translated(StatementTokens tokens, SqliteConnection& connection) {
  ReadInAsExists(tokens, connection);
  UseTrimmedIndex(tokens, connection);
  WriteDeleteFrom(tokens);
  WriteTopAsLimit(tokens);
  WriteIsnull(tokens);
  WriteCollation(tokens);
  return JoinTokens(tokens);
}

/// Whether SQLite knows all names in it: those of a selection that looks at the rows around it are not known.
bool StandsAlone(const std::string& sql, SqliteConnection& connection) {
  try {
    static_cast<void>(connection.Prepare(sql));
    return true;
  } catch (const DatabaseError&) {
    return false;
  }
}

}  // namespace

std::string TranslateShape(std::string_view shape, SqliteConnection& connection) {
  StatementTokens tokens = ReadTokens(shape);
  RefuseOrderByNumber(tokens, shape);
  return Translated(std::move(tokens), connection);
}

ShapeOverKeys TranslateOverKeys(std::string_view shape, SqliteConnection& connection) {
  StatementTokens tokens = ReadTokens(shape);
  RefuseOrderByNumber(tokens, shape);
  ShapeOverKeys translated;
  for (KeySelection& taken : TakeKeySelections(tokens, connection)) {
    ReadOrAsIn(taken.tokens, taken.table, connection);
    std::string sql = Translated(std::move(taken.tokens), connection);
    std::string order = taken.order.empty() ? std::string() : " " + JoinTokens(taken.order);
    if (!StandsAlone(sql + order, connection)) return {TranslateShape(shape, connection), {}};
    translated.selections.push_back(
        {std::move(sql), std::move(order), std::move(taken.literals), taken.parameter});
  }
  translated.sql = Translated(std::move(tokens), connection);
  return translated;
}

}  // namespace koru
