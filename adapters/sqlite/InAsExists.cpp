#include "adapters/sqlite/InAsExists.h"

#include <iterator>
#include <optional>

#include "adapters/sqlite/InSelection.h"

namespace koru {
namespace {

StatementTokens Rewritten(const StatementTokens& tokens, const InSelection& selection) {
  StatementTokens exists =
      ReadTokens("exists (select 1 from " + selection.table + " where " + selection.table + "." +
                 selection.key + "=" + selection.outer + "." + selection.column + " and (");
  exists.front().spaceBefore = true;
  const auto at = [&](std::size_t index) {
    return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index));
  };
  exists.insert(exists.end(), at(selection.condition), at(selection.close));
  exists.push_back({SqlTokenKind::Symbol, ")", false});
  exists.push_back({SqlTokenKind::Symbol, ")", false});
  return exists;
}

}  // namespace

void ReadInAsExists(StatementTokens& tokens, SqliteConnection& connection) {
  for (std::size_t in = 0; in < tokens.size(); ++in) {
    const std::optional<InSelection> selection = ReadInSelection(tokens, in, connection);
    if (!selection) continue;
    Replace(tokens, selection->begin, selection->close + 1, Rewritten(tokens, *selection));
    in = selection->begin;
  }
}

}  // namespace koru
