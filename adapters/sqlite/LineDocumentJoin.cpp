#include "adapters/sqlite/LineDocumentJoin.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include "adapters/sqlite/WhereClause.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

StatementTokens Slice(const StatementTokens& tokens, std::size_t begin, std::size_t end) {
  const auto at = [&](std::size_t index) {
    return std::next(tokens.begin(), static_cast<std::ptrdiff_t>(index));
  };
  return {at(begin), at(end)};
}

void Append(StatementTokens& tokens, const StatementTokens& more) {
  tokens.insert(tokens.end(), more.begin(), more.end());
}

bool IsTopLevel(const StatementTokens& tokens, std::size_t at) {
  return EndOfLevel(tokens, at) == tokens.size();
}

/// The index of the first `word` outside parentheses; the number of tokens if there is none.
std::size_t PlaceOf(const StatementTokens& tokens, std::string_view word) {
  std::size_t at = 0;
  while (at < tokens.size() && !(tokens[at].Is(word) && IsTopLevel(tokens, at))) ++at;
  return at;
}

/// The terms of [begin, end) that `and` joins.
std::vector<StatementTokens> TermsOf(const StatementTokens& tokens, std::size_t begin, std::size_t end) {
  std::vector<StatementTokens> terms;
  for (std::size_t at = begin; at <= end; ++at) {
    if (at < end && !(tokens[at].Is("and") && IsTopLevel(tokens, at))) continue;
    terms.push_back(Slice(tokens, begin, at));
    begin = at + 1;
  }
  return terms;
}

/// Whether a name in the tokens, also in a nested subquery, is the table's or one of its columns'.
bool Mentions(const StatementTokens& tokens, const std::string& table, const SqliteConnection& connection) {
  return std::any_of(tokens.begin(), tokens.end(), [&](const StatementToken& token) {
    return token.kind == SqlTokenKind::Word &&
           (EqualsNoCase(token.text, table) || connection.HasColumn(table, token.text));
  });
}

/// Reads a statement of that form, for one of the two assignments of the tables to lines and documents.
class JoinReader {
 public:
  JoinReader(const StatementTokens& tokens, std::string lines, std::string documents,
             SqliteConnection& connection)
      : tokens_(tokens), documents_(std::move(documents)), connection_(connection) {
    read_.lines = std::move(lines);
    read_.documents = documents_;
  }

  std::optional<LineDocumentJoin> Read(std::size_t where, std::size_t order) {
    const std::size_t from = PlaceOf(tokens_, "from");
    read_.beforeWhere = Slice(tokens_, 0, from);
    const bool hasStar = std::any_of(read_.beforeWhere.begin(), read_.beforeWhere.end(),
                                     [](const StatementToken& token) { return token.Is("*"); });
    if (hasStar || Mentions(read_.beforeWhere, documents_, connection_)) return {};
    Append(read_.beforeWhere, ReadTokens("from " + read_.lines));
    read_.beforeWhere[from].spaceBefore = true;
    for (const StatementTokens& term : TermsOf(tokens_, where + 1, order)) {
      if (!Take(term)) return {};
    }
    if (key_.empty() || ofDocuments_.empty() || !TakeOrder(order)) return {};
    return std::move(read_);
  }

 private:
  bool Take(const StatementTokens& term) {
    const bool onLines = Mentions(term, read_.lines, connection_);
    const bool onDocuments = Mentions(term, documents_, connection_);
    if (onLines && onDocuments) return TakeJoin(term);
    StatementTokens& taken = onDocuments ? ofDocuments_ : read_.ofLines;
    if (!onDocuments || !ofDocuments_.empty()) taken.push_back({SqlTokenKind::Word, "and", true});
    Append(taken, term);
    return !term.empty();
  }

  bool TakeJoin(const StatementTokens& term) {
    if (term.size() != 3 || !term[1].Is("=") || !key_.empty()) return false;
    for (const auto& [key, column] :
         {std::pair(term[0].text, term[2].text), std::pair(term[2].text, term[0].text)}) {
      if (!connection_.IsIntegerKey(documents_, key) || connection_.HasColumn(read_.lines, key)) continue;
      if (!connection_.IsIntegerColumn(read_.lines, column) || connection_.HasColumn(documents_, column))
        continue;
      key_ = key;
      read_.column = column;
    }
    return !key_.empty();
  }

  static StatementTokens Tie(const std::string& column, const StatementTokens& direction) {
    StatementTokens tie{{SqlTokenKind::Word, "," + column, false}};
    Append(tie, direction);
    return tie;
  }

  /// Reads `order by C [asc|desc]` up to the end, or no order.
  bool TakeOrder(std::size_t order) {
    read_.keys = ReadTokens("select " + key_ + " from " + documents_ + " where");
    ofDocuments_.front().spaceBefore = true;
    Append(read_.keys, ofDocuments_);
    if (order == tokens_.size()) return true;
    const StatementToken& column = At(tokens_, order + 2);
    const bool hasDirection = At(tokens_, order + 3).Is("asc") || At(tokens_, order + 3).Is("desc");
    if (!At(tokens_, order + 1).Is("by") || column.kind != SqlTokenKind::Word ||
        tokens_.size() != order + (hasDirection ? 4 : 3))
      return false;
    if (!connection_.HasColumn(documents_, column.text) || connection_.HasColumn(read_.lines, column.text))
      return false;
    read_.order = Slice(tokens_, order, tokens_.size());
    const StatementTokens direction = Slice(tokens_, order + 3, tokens_.size());
    read_.tiedDocuments = Tie(key_, direction);
    if (connection_.HasColumn(read_.lines, "rowid")) read_.tiedLines = Tie(read_.lines + ".rowid", direction);
    return true;
  }

  const StatementTokens& tokens_;
  std::string documents_;  // T
  std::string key_;
  StatementTokens ofDocuments_;
  SqliteConnection& connection_;
  LineDocumentJoin read_;
};

}  // namespace

std::optional<LineDocumentJoin> ReadLineDocumentJoin(const StatementTokens& tokens,
                                                     SqliteConnection& connection) {
  const bool isPlain =
      At(tokens, 0).Is("select") && !LevelHasAny(tokens, 0, tokens.size(),
                                                 {"or", "between", "case", "top", "distinct", "all", "group",
                                                  "having", "union", "except", "intersect"});
  const std::size_t where = PlaceOf(tokens, "where");
  if (!isPlain || where == tokens.size()) return {};
  const std::vector<std::string> tables = TablesOf(tokens, where);
  if (tables.size() != 2 || EqualsNoCase(tables[0], tables[1])) return {};
  const std::size_t order = PlaceOf(tokens, "order");
  if (auto read = JoinReader(tokens, tables[0], tables[1], connection).Read(where, order)) return read;
  return JoinReader(tokens, tables[1], tables[0], connection).Read(where, order);
}

}  // namespace koru
