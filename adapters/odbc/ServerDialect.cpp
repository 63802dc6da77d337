#include "adapters/odbc/ServerDialect.h"

#include <algorithm>
#include <string_view>

#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

[[noreturn]] void Refuse(const std::string& why, const std::string& statement) {
  throw DatabaseError(why, kBrokenStatement, statement);
}

bool IsBeyondAscii(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80U; });
}

}  // namespace

std::string ServerStatement(const std::string& statement) {
  if (statement.find('\0') != std::string::npos) Refuse("A statement has no NUL characters.", statement);
  std::string sent;
  SqlLexer lexer(statement);
  std::size_t written = 0;
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind == SqlTokenKind::Broken) Refuse("Unclosed quotation mark, bracket or comment.", statement);
    if (lexer.TextOf(token) == "?") Refuse("A parameter without a value: ?", statement);
    if (lexer.TextOf(token) == ";" && lexer.Next().kind != SqlTokenKind::End) {
      Refuse("More than one statement in a call.", statement);
    }
    if (token.kind == SqlTokenKind::String && IsBeyondAscii(lexer.TextOf(token))) {
      sent.append(statement, written, token.begin - written);
      sent += 'N';
      written = token.begin;
    }
  }
  sent.append(statement, written);
  return sent;
}

bool IsInsert(std::string_view statement) {
  SqlLexer lexer(statement);
  SqlToken token = lexer.Next();
  while (token.kind == SqlTokenKind::Comment) token = lexer.Next();
  return EqualsNoCase(lexer.TextOf(token), "insert");
}

}  // namespace koru
