#include "tests/database/sqlserver/ScriptTables.h"

#include <limits>

#include "platform/sql/SqlLexer.h"
#include "platform/text/Text.h"

namespace koru::test {
namespace {

using Tokens = std::vector<std::string>;

/// Calls `visit` with the tokens of each element of a comma-separated list, from `at` to the closing
/// parenthesis or word.
template <class Visit>
void ForEachPart(const Tokens& tokens, std::size_t at, const std::string& end, Visit visit) {
  int depth = 0;
  Tokens part;
  for (; at < tokens.size() && (depth > 0 || tokens[at] != end); ++at) {
    if (tokens[at] == "(") ++depth;
    if (tokens[at] == ")") --depth;
    if (depth == 0 && tokens[at] == ",") {
      visit(part);
      part.clear();
    } else {
      part.push_back(tokens[at]);
    }
  }
  visit(part);
}

bool Begins(const Tokens& tokens, const std::string& kind) {
  return tokens.size() > 3 && tokens[0] == "create" && tokens[1] == kind;
}

}  // namespace

Columns ScriptTable::Names() const {
  Columns names;
  for (const auto& [name, type] : types) names.insert(name);
  return names;
}

Tokens TokensOf(const SqlText& batch) {
  Tokens tokens;
  SqlLexer lexer(batch.Text());
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind != SqlTokenKind::Comment) tokens.push_back(LowerAscii(lexer.TextOf(token)));
  }
  return tokens;
}

std::map<std::string, ScriptTable> TablesOf(const std::vector<SqlText>& batches) {
  std::map<std::string, ScriptTable> tables;
  for (const SqlText& batch : batches) {
    const Tokens tokens = TokensOf(batch);
    if (!Begins(tokens, "table")) continue;
    ForEachPart(tokens, 4, ")", [&](const Tokens& column) {
      if (column.front() == "primary") return;
      ScriptTable& table = tables[tokens[2]];
      table.types[column.front()] = column.at(1);
      if (column.at(1) == "nvarchar") {
        table.lengths[column.front()] =
            column.at(3) == "max" ? std::numeric_limits<int>::max() : std::stoi(column.at(3));
      }
    });
  }
  return tables;
}

std::map<std::string, Columns> ViewsOf(const std::vector<SqlText>& batches) {
  std::map<std::string, Columns> views;
  for (const SqlText& batch : batches) {
    const Tokens tokens = TokensOf(batch);
    if (!Begins(tokens, "view")) continue;
    ForEachPart(tokens, 5, "from", [&](const Tokens& column) { views[tokens[2]].insert(column.back()); });
  }
  return views;
}

}  // namespace koru::test
