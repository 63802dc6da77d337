#include "adapters/sqlite/Dialect.h"

#include <iterator>
#include <optional>
#include <utility>

#include "adapters/sqlite/HoistedSubquery.h"
#include "adapters/sqlite/LineDocumentJoin.h"
#include "adapters/sqlite/StatementTokens.h"
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

/// Rewrites `select [distinct] top n ...` and `top (n)` as `limit n` at the end of the same select.
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

/// Whether the token at `at` ends, or together with the next one begins, anything but a plain column.
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

/// Completes the order of lines of documents, with which the statement ends.
void WriteTies(StatementTokens& tokens, SqliteConnection& connection) {
  const std::optional<LineDocumentJoin> join = ReadLineDocumentJoin(tokens, connection);
  if (!join) return;
  for (const StatementTokens* tie : {&join->tiedDocuments, &join->tiedLines})
    tokens.insert(tokens.end(), tie->begin(), tie->end());
}

void RefuseOrderByNumber(const StatementTokens& tokens, std::string_view normalized) {
  for (std::size_t at = 1; at < tokens.size(); ++at) {
    if (tokens[at - 1].Is("by") && tokens[at].kind == SqlTokenKind::Parameter) {
      throw DatabaseError("Rows are ordered by the name of a column, not by its number.", kBrokenStatement,
                          std::string(normalized));
    }
  }
}

std::string Translated(StatementTokens tokens) {
  WriteDeleteFrom(tokens);
  WriteTopAsLimit(tokens);
  WriteIsnull(tokens);
  WriteCollation(tokens);
  return JoinTokens(tokens);
}

/// The tokens of a normalized text.
StatementTokens Read(std::string_view normalized) {
  StatementTokens tokens = ReadTokens(normalized);
  RefuseOrderByNumber(tokens, normalized);
  return tokens;
}

/// Whether SQLite can prepare it by itself. A correlated subquery has names that are not known outside.
bool IsUncorrelated(const std::string& sql, SqliteConnection& connection) {
  try {
    static_cast<void>(connection.Prepare(sql));
    return true;
  } catch (const DatabaseError&) {
    return false;
  }
}

}  // namespace

std::string Translate(std::string_view normalized) { return Translated(Read(normalized)); }

std::string TranslateOrdered(std::string_view normalized, SqliteConnection& connection) {
  StatementTokens tokens = Read(normalized);
  WriteTies(tokens, connection);
  return Translated(std::move(tokens));
}

HoistedStatement TranslateHoisted(std::string_view normalized, SqliteConnection& connection) {
  StatementTokens tokens = Read(normalized);
  HoistedStatement translated;
  for (HoistedSubquery& hoisted : HoistSubqueries(tokens, connection)) {
    std::string sql = Translated(std::move(hoisted.tokens));
    std::string order = hoisted.order.empty() ? std::string() : " " + JoinTokens(hoisted.order);
    if (!IsUncorrelated(sql + order, connection)) return {TranslateOrdered(normalized, connection), {}};
    translated.subqueries.push_back(
        {std::move(sql), std::move(order), std::move(hoisted.literals), hoisted.parameter});
  }
  translated.sql = Translated(std::move(tokens));
  return translated;
}

}  // namespace koru
