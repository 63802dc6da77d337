#include "search/PickedList.h"

#include "platform/sql/SqlLexer.h"

namespace koru {
namespace {

/// White space between tokens is kept.
void AppendSpace(SqlText& sql, std::string_view space) {
  for (const char c : space) {
    if (c == ' ') {
      sql += " ";
    } else {
      sql += Typed({&c, 1});
    }
  }
}

void AppendToken(SqlText& sql, SqlToken token, std::string_view text) {
  if (token.kind == SqlTokenKind::String) {
    sql += SqlText("'") + Typed(text.substr(1, text.size() - 2)) + "'";
  } else if (text == "(") {
    sql += "(";
  } else if (text == ")") {
    sql += ")";
  } else if (text == ",") {
    sql += ",";
  } else {
    sql += Typed(text);
  }
}

}  // namespace

SqlText PickedList(std::string_view list) {
  SqlText sql;
  SqlLexer lexer(list);
  std::size_t end = 0;
  for (SqlToken token = lexer.Next();; token = lexer.Next()) {
    AppendSpace(sql, list.substr(end, token.begin - end));
    if (token.kind == SqlTokenKind::End) return sql;
    AppendToken(sql, token, lexer.TextOf(token));
    end = token.end;
  }
}

}  // namespace koru
