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
  HoistedSubquery keys = AsStatement(std::move(join->keys), parameter);
  keys.order = std::move(join->order);
  keys.order.insert(keys.order.end(), join->tiedDocuments.begin(), join->tiedDocuments.end());
  return keys;
}

HoistedSubquery HoistIn(StatementTokens& tokens, const InSubquery& in, int parameter) {
  StatementTokens keys = ReadTokens("select " + in.key + " from " + in.table + " where");
  const auto at = [&](std::size_t index) {
    return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index));
  };
  keys.insert(keys.end(), at(in.condition), at(in.close));
  Replace(tokens, in.begin, in.close + 1, {RankOf(in.outer, in.column, parameter)});
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
    hoisted.push_back(HoistIn(tokens, *in, ++parameter));
    at = in->begin;
  }
  return hoisted;
}

}  // namespace koru
