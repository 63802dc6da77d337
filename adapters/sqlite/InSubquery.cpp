#include "adapters/sqlite/InSubquery.h"

#include <tuple>
#include <utility>
#include <vector>

#include "adapters/sqlite/WhereClause.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

using Index = std::size_t;

/// Reads `name` or `table.name` at `at` and moves `at` past it. The name is empty if there is none.
std::pair<std::string, std::string> ReadName(const StatementTokens& tokens, Index& at) {
  if (At(tokens, at).kind != SqlTokenKind::Word) return {};
  std::string name = tokens[at++].text;
  if (!At(tokens, at).Is(".") || At(tokens, at + 1).kind != SqlTokenKind::Word)
    return {std::string(), std::move(name)};
  std::string qualified = tokens[at + 1].text;
  at += 2;
  return {std::move(name), std::move(qualified)};
}

/// The subquery whose `in` is the token at `in`, if it has the form.
std::optional<InSubquery> ReadForm(const StatementTokens& tokens, Index in) {
  InSubquery read;
  if (in == 0 || !At(tokens, in + 1).Is("(") || !At(tokens, in + 2).Is("select")) return {};
  const bool qualified = in >= 3 && tokens[in - 2].Is(".");
  read.begin = qualified ? in - 3 : in - 1;
  Index at = read.begin;
  std::tie(read.qualifier, read.column) = ReadName(tokens, at);
  if (at != in) return {};
  at = in + 3;
  std::string keyQualifier;
  std::tie(keyQualifier, read.key) = ReadName(tokens, at);
  if (!At(tokens, at).Is("from") || At(tokens, at + 1).kind != SqlTokenKind::Word ||
      !At(tokens, at + 2).Is("where")) {
    return {};
  }
  read.table = tokens[at + 1].text;
  read.condition = at + 3;
  read.close = EndOfLevel(tokens, read.condition);
  const bool isOfTable = keyQualifier.empty() || EqualsNoCase(keyQualifier, read.table);
  const bool isPlain = !LevelHasAny(tokens, read.condition, read.close,
                                    {"group", "having", "order", "union", "except", "intersect", "limit"});
  return isOfTable && isPlain && read.close < tokens.size() ? std::optional(read) : std::nullopt;
}

/// The only table that the enclosing select reads; empty if there are several or the subquery is not a term
/// joined by `and`.
std::string OuterTable(const StatementTokens& tokens, const InSubquery& subquery) {
  const std::optional<Index> where = WhereOfTerm(tokens, subquery.begin, subquery.close + 1);
  const std::vector<std::string> tables = where ? TablesOf(tokens, *where) : std::vector<std::string>();
  return tables.size() == 1 ? tables.front() : std::string();
}

bool CanHoist(const InSubquery& subquery, SqliteConnection& connection) {
  const std::string& outer = subquery.outer;
  return !outer.empty() && !EqualsNoCase(outer, subquery.table) &&
         (subquery.qualifier.empty() || EqualsNoCase(subquery.qualifier, outer)) &&
         connection.HasColumn(outer, subquery.column) &&
         connection.IsIntegerKey(subquery.table, subquery.key);
}

}  // namespace

std::optional<InSubquery> ReadInSubquery(const StatementTokens& tokens, std::size_t in,
                                         SqliteConnection& connection) {
  if (!At(tokens, in).Is("in")) return {};
  std::optional<InSubquery> subquery = ReadForm(tokens, in);
  if (!subquery) return {};
  subquery->outer = OuterTable(tokens, *subquery);
  return CanHoist(*subquery, connection) ? subquery : std::nullopt;
}

}  // namespace koru
