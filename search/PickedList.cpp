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

std::vector<std::string> BarcodesIn(std::string_view list) {
  std::vector<std::string> barcodes;
  SqlLexer lexer(list);
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End && token.kind != SqlTokenKind::Broken;
       token = lexer.Next()) {
    if (token.kind != SqlTokenKind::String) continue;
    const std::string_view literal = lexer.TextOf(token);
    std::string barcode;
    for (std::size_t at = 1; at + 1 < literal.size(); ++at) {
      barcode += literal[at];
      if (literal[at] == '\'') ++at;  // two of them are one
    }
    if (!barcode.empty()) barcodes.push_back(std::move(barcode));
  }
  return barcodes;
}

}  // namespace koru
