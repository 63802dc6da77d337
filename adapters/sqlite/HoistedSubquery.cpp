#include "adapters/sqlite/HoistedSubquery.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>

#include "adapters/sqlite/InSubquery.h"
#include "adapters/sqlite/LineDocumentJoin.h"

namespace koru {
namespace {

bool IsLiteral(const StatementToken& token) {
  return token.kind == SqlTokenKind::String || token.kind == SqlTokenKind::Parameter;
}

/// The index of the S of `(S=?n or S in (select`, where S is an integer column of `table`.
std::optional<std::size_t> PlaceOfAlternatives(const StatementTokens& tokens, const std::string& table,
                                               const SqliteConnection& connection) {
  // In a nested select, S can be a column of another table.
  for (std::size_t at = 1; at < tokens.size() && !tokens[at].Is("select"); ++at) {
    const bool isForm = tokens[at - 1].Is("(") && At(tokens, at + 1).Is("=") &&
                        At(tokens, at + 2).kind == SqlTokenKind::Parameter && At(tokens, at + 3).Is("or") &&
                        At(tokens, at + 4).Is(tokens[at].text) && At(tokens, at + 5).Is("in") &&
                        At(tokens, at + 6).Is("(") && At(tokens, at + 7).Is("select");
    if (isForm && connection.IsIntegerColumn(table, tokens[at].text)) return at;
  }
  return {};
}

/// Rewrites `(S=?n or S in (select ...))` as `(S in (select ?n union all select ...))`, which has the same
/// value, NULL included. For an `or`, SQLite searches the index of S twice and keeps the rows found, in order
/// not to return one twice.
void WriteOneList(StatementTokens& tokens, const std::string& table, const SqliteConnection& connection) {
  const std::optional<std::size_t> column = PlaceOfAlternatives(tokens, table, connection);
  if (!column) return;
  const std::size_t select = *column + 7;
  const std::size_t close = EndOfLevel(tokens, select);
  const bool isPlain =
      !LevelHasAny(tokens, select, close, {"top", "union", "except", "intersect", "order", "limit"});
  if (!isPlain || !At(tokens, close + 1).Is(")")) return;
  StatementTokens list = ReadTokens("S in (select ? union all");
  list[0] = tokens[*column];
  list[4].text = tokens[*column + 2].text;
  tokens[select].spaceBefore = true;
  Replace(tokens, *column, select, list);
}

/// Renumbers the literals from 1 and records the numbers that they had.
HoistedSubquery AsStatement(StatementTokens tokens, int parameter) {
  HoistedSubquery subquery{std::move(tokens), {}, {}, parameter};
  for (StatementToken& token : subquery.tokens) {
    if (!IsLiteral(token)) continue;
    subquery.literals.push_back(std::stoi(token.text.substr(1)));
    token.text = "?" + std::to_string(subquery.literals.size());
  }
  return subquery;
}

StatementToken RankOf(const std::string& table, const std::string& column, int parameter) {
  return {SqlTokenKind::Word,
          "koru_key_rank(?" + std::to_string(parameter) + "," + table + "." + column + ")", true};
}

std::optional<HoistedSubquery> HoistJoin(StatementTokens& tokens, int parameter,
                                         SqliteConnection& connection) {
  std::optional<LineDocumentJoin> join = ReadLineDocumentJoin(tokens, connection);
  if (!join) return {};
  const StatementToken rank = RankOf(join->lines, join->column, parameter);
  StatementTokens rest = std::move(join->beforeWhere);
  rest.push_back({SqlTokenKind::Word, "where", true});
  rest.push_back(rank);
  rest.insert(rest.end(), join->ofLines.begin(), join->ofLines.end());
  if (!join->order.empty()) {
    rest.push_back({SqlTokenKind::Word, "order by", true});
    rest.push_back(rank);
    rest.insert(rest.end(), join->tiedLines.begin(), join->tiedLines.end());
  }
  tokens = std::move(rest);
  WriteOneList(join->keys, join->documents, connection);
  HoistedSubquery keys = AsStatement(std::move(join->keys), parameter);
  keys.order = std::move(join->order);
  keys.order.insert(keys.order.end(), join->tiedDocuments.begin(), join->tiedDocuments.end());
  return keys;
}

HoistedSubquery HoistIn(StatementTokens& tokens, const InSubquery& in, int parameter,
                        const SqliteConnection& connection) {
  StatementTokens keys = ReadTokens("select " + in.key + " from " + in.table + " where");
  const auto at = [&](std::size_t index) {
    return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index));
  };
  keys.insert(keys.end(), at(in.condition), at(in.close));
  Replace(tokens, in.begin, in.close + 1, {RankOf(in.outer, in.column, parameter)});
  WriteOneList(keys, in.table, connection);
  return AsStatement(std::move(keys), parameter);
}

}  // namespace

std::vector<HoistedSubquery> HoistSubqueries(StatementTokens& tokens, SqliteConnection& connection) {
  std::vector<HoistedSubquery> hoisted;
  int parameter = static_cast<int>(std::count_if(tokens.begin(), tokens.end(), IsLiteral));
  if (auto join = HoistJoin(tokens, parameter + 1, connection)) {
    hoisted.push_back(std::move(*join));
    ++parameter;
  }
  for (std::size_t at = 0; at < tokens.size(); ++at) {
    const std::optional<InSubquery> in = ReadInSubquery(tokens, at, connection);
    if (!in || !connection.IsIntegerColumn(in->outer, in->column)) continue;
    hoisted.push_back(HoistIn(tokens, *in, ++parameter, connection));
    at = in->begin;
  }
  return hoisted;
}

}  // namespace koru
