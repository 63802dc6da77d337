#include "adapters/sqlite/TrimmedBarcode.h"

#include <iterator>
#include <optional>
#include <string>

#include "adapters/sqlite/WhereClause.h"

namespace koru {
namespace {

/// The one table of the condition that has the column, provided that it has the index; empty otherwise.
std::string IndexedTable(const StatementTokens& tokens, std::size_t where, const std::string& column,
                         SqliteConnection& connection) {
  std::string owner;
  for (const std::string& table : TablesOf(tokens, where)) {
    if (!connection.HasColumn(table, column)) continue;
    if (!owner.empty()) return {};
    owner = table;
  }
  return !owner.empty() && connection.HasTrimmedIndexOnly(owner, column) ? owner : std::string();
}

}  // namespace

void UseTrimmedIndex(StatementTokens& tokens, SqliteConnection& connection) {
  for (std::size_t at = 1; at + 2 < tokens.size(); ++at) {
    const bool isComparison = tokens[at].kind == SqlTokenKind::Word && tokens[at + 1].Is("=") &&
                              tokens[at + 2].kind == SqlTokenKind::String;
    if (!isComparison) continue;
    const std::optional<std::size_t> where = WhereOfPart(tokens, at, at + 3);
    if (!where) continue;
    const std::string table = IndexedTable(tokens, *where, tokens[at].text, connection);
    if (table.empty()) continue;
    std::string trimmed = "LTrim(RTrim(" + table + "." + tokens[at].text;
    trimmed += ")) = LTrim(RTrim(" + tokens[at + 2].text + ")) collate KORU and";
    // The plus keeps SQLite from putting the text in the column's place everywhere, the indexed expression
    // included.
    tokens[at].text.insert(0, "+");
    tokens.insert(std::next(tokens.begin(), static_cast<std::ptrdiff_t>(at)),
                  {SqlTokenKind::Word, trimmed, true});
    at += 3;
  }
}

}  // namespace koru
