#include "adapters/sqlite/KeySelection.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

#include "adapters/sqlite/InSelection.h"
#include "adapters/sqlite/JoinedSelection.h"

namespace koru {
namespace {

bool IsLiteral(const StatementToken& token) {
  return token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::Parameter;
}

/// Numbers the literals anew from 1 and keeps which ones they were.
KeySelection ByItself(std::string table, StatementTokens tokens, int parameter) {
  KeySelection selection{std::move(table), std::move(tokens), {}, {}, parameter};
  for (StatementToken& token : selection.tokens) {
    if (!IsLiteral(token)) continue;
    selection.literals.push_back(std::stoi(token.text.substr(1)));
    token.text = "?" + std::to_string(selection.literals.size());
  }
  return selection;
}

StatementToken RankOf(const std::string& table, const std::string& column, int parameter) {
  return {SqlTokenKind::Word, "KoruRank(?" + std::to_string(parameter) + "," + table + "." + column + ")",
          true};
}

std::optional<KeySelection> TakeJoined(StatementTokens& tokens, int parameter, SqliteConnection& connection) {
  std::optional<JoinedSelection> joined = ReadJoinedSelection(tokens, connection);
  if (!joined) return {};
  const StatementToken rank = RankOf(joined->lines, joined->column, parameter);
  StatementTokens rest = std::move(joined->beforeWhere);
  rest.push_back({SqlTokenKind::Word, "where", true});
  rest.push_back(rank);
  rest.insert(rest.end(), joined->ofLines.begin(), joined->ofLines.end());
  if (!joined->order.empty()) {
    rest.push_back({SqlTokenKind::Word, "order by", true});
    rest.push_back(rank);
  }
  tokens = std::move(rest);
  KeySelection keys = ByItself(std::move(joined->documents), std::move(joined->keys), parameter);
  keys.order = std::move(joined->order);
  return keys;
}

KeySelection TakeIn(StatementTokens& tokens, const InSelection& in, int parameter) {
  StatementTokens keys = ReadTokens("select " + in.key + " from " + in.table + " where");
  const auto at = [&](std::size_t index) {
    return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index));
  };
  keys.insert(keys.end(), at(in.condition), at(in.close));
  Replace(tokens, in.begin, in.close + 1, {RankOf(in.outer, in.column, parameter)});
  return ByItself(in.table, std::move(keys), parameter);
}

}  // namespace

std::vector<KeySelection> TakeKeySelections(StatementTokens& tokens, SqliteConnection& connection) {
  std::vector<KeySelection> taken;
  int parameter = static_cast<int>(std::count_if(tokens.begin(), tokens.end(), IsLiteral));
  if (auto joined = TakeJoined(tokens, parameter + 1, connection)) {
    taken.push_back(std::move(*joined));
    ++parameter;
  }
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const std::optional<InSelection> in = ReadInSelection(tokens, at, connection);
    if (!in || !connection.IsIntegerColumn(in->outer, in->column)) continue;
    taken.push_back(TakeIn(tokens, *in, ++parameter));
    at = in->begin;
  }
  return taken;
}

}  // namespace koru
