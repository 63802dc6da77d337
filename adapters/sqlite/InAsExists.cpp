#include "adapters/sqlite/InAsExists.h"

#include <iterator>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

#include "adapters/sqlite/WhereClause.h"
#include "platform/Text.h"

namespace koru {
namespace {

using Index = std::size_t;

/// The places and names of one `X in (select key from T where condition)`.
struct Selection {
  Index begin = 0;      ///< of X, or of the table that qualifies it
  Index condition = 0;  ///< behind the inner where
  Index close = 0;      ///< the closing parenthesis
  std::string column;   ///< X
  std::string qualifier;
  std::string table;  ///< T
  std::string key;
};

/// Reads a name at `at`, or `table.name`; `at` moves behind it. Empty name: there is none.
std::pair<std::string, std::string> ReadName(const StatementTokens& tokens, Index& at) {
  if (At(tokens, at).kind != SqlTokenKind::Word) return {};
  std::string name = tokens[at++].text;
  if (!At(tokens, at).Is(".") || At(tokens, at + 1).kind != SqlTokenKind::Word)
    return {std::string(), std::move(name)};
  std::string qualified = tokens[at + 1].text;
  at += 2;
  return {std::move(name), std::move(qualified)};
}

/// The selection whose `in` stands at `in`, when it has the form that is looked for.
std::optional<Selection> ReadSelection(const StatementTokens& tokens, Index in) {
  Selection read;
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

/// The one table that is read where the selection stands; empty when there are several or the place does not
/// fit.
std::string OuterTable(const StatementTokens& tokens, const Selection& selection) {
  const std::optional<Index> where = WhereOfPart(tokens, selection.begin, selection.close + 1);
  const std::vector<std::string> tables = where ? TablesOf(tokens, *where) : std::vector<std::string>();
  return tables.size() == 1 ? tables.front() : std::string();
}

bool Serves(const Selection& selection, const std::string& outer, SqliteConnection& connection) {
  return !outer.empty() && !EqualsNoCase(outer, selection.table) &&
         (selection.qualifier.empty() || EqualsNoCase(selection.qualifier, outer)) &&
         connection.HasColumn(outer, selection.column) &&
         connection.IsIntegerKey(selection.table, selection.key);
}

StatementTokens Rewritten(const StatementTokens& tokens, const Selection& selection,
                          const std::string& outer) {
  StatementTokens exists =
      ReadTokens("exists (select 1 from " + selection.table + " where " + selection.table + "." +
                 selection.key + "=" + outer + "." + selection.column + " and (");
  exists.front().spaceBefore = true;
  const auto at = [&](Index index) { return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index)); };
  exists.insert(exists.end(), at(selection.condition), at(selection.close));
  exists.push_back({SqlTokenKind::Symbol, ")", false});
  exists.push_back({SqlTokenKind::Symbol, ")", false});
  return exists;
}

}  // namespace

void ReadInAsExists(StatementTokens& tokens, SqliteConnection& connection) {
  for (Index in = 0; in < tokens.size(); ++in) {
    if (!tokens[in].Is("in")) continue;
    const std::optional<Selection> selection = ReadSelection(tokens, in);
    if (!selection) continue;
    const std::string outer = OuterTable(tokens, *selection);
    if (!Serves(*selection, outer, connection)) continue;
    const StatementTokens exists = Rewritten(tokens, *selection, outer);
    const auto begin = std::next(tokens.begin(), static_cast<std::ptrdiff_t>(selection->begin));
    const auto end = std::next(tokens.begin(), static_cast<std::ptrdiff_t>(selection->close + 1));
    tokens.insert(tokens.erase(begin, end), exists.begin(), exists.end());
    in = selection->begin;
  }
}

}  // namespace koru
