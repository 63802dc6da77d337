#include "adapters/sqlite/InSelection.h"

#include <tuple>
#include <utility>
#include <vector>

#include "adapters/sqlite/WhereClause.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

using Index = std::size_t;

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
std::optional<InSelection> ReadForm(const StatementTokens& tokens, Index in) {
  InSelection read;
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
std::string OuterTable(const StatementTokens& tokens, const InSelection& selection) {
  const std::optional<Index> where = WhereOfPart(tokens, selection.begin, selection.close + 1);
  const std::vector<std::string> tables = where ? TablesOf(tokens, *where) : std::vector<std::string>();
  return tables.size() == 1 ? tables.front() : std::string();
}

bool Serves(const InSelection& selection, SqliteConnection& connection) {
  const std::string& outer = selection.outer;
  return !outer.empty() && !EqualsNoCase(outer, selection.table) &&
         (selection.qualifier.empty() || EqualsNoCase(selection.qualifier, outer)) &&
         connection.HasColumn(outer, selection.column) &&
         connection.IsIntegerKey(selection.table, selection.key);
}

}  // namespace

std::optional<InSelection> ReadInSelection(const StatementTokens& tokens, std::size_t in,
                                           SqliteConnection& connection) {
  if (!At(tokens, in).Is("in")) return {};
  std::optional<InSelection> selection = ReadForm(tokens, in);
  if (!selection) return {};
  selection->outer = OuterTable(tokens, *selection);
  return Serves(*selection, connection) ? selection : std::nullopt;
}

}  // namespace koru
