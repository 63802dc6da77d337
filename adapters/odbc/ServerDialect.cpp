#include "adapters/odbc/ServerDialect.h"

#include <algorithm>

#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"

namespace koru {
namespace {

[[noreturn]] void Refuse(const std::string& why, const std::string& statement) {
  throw DatabaseError(why, kBrokenStatement, statement);
}

bool IsBeyondAscii(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80U; });
}

}  // namespace

SentStatement ServerDialect::Write(const std::string& statement) {
  if (statement.find('\0') != std::string::npos) Refuse("A statement has no NUL characters.", statement);
  SentStatement sent;
  SqlLexer lexer(statement);
  std::size_t written = 0;
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind == SqlTokenKind::Broken) Refuse("Unclosed quotation mark, bracket or comment.", statement);
    if (lexer.TextOf(token) == "?") Refuse("A parameter without a value: ?", statement);
    if (lexer.TextOf(token) == ";" && lexer.Next().kind != SqlTokenKind::End) {
      Refuse("More than one statement in a call.", statement);
    }
    if (token.kind == SqlTokenKind::String && IsBeyondAscii(lexer.TextOf(token))) {
      sent.text.append(statement, written, token.begin - written);
      sent.text += 'N';
      written = token.begin;
    }
  }
  sent.text.append(statement, written);
  return sent;
}

std::string ServerDialect::SessionSettings() const {
  return "SET DATEFORMAT ymd SET ANSI_NULLS, ANSI_PADDING, ANSI_WARNINGS, ARITHABORT, "
         "CONCAT_NULL_YIELDS_NULL, "
         "QUOTED_IDENTIFIER ON SET NUMERIC_ROUNDABORT OFF";
}

std::optional<OdbcDialect::GroupStatements> ServerDialect::WriteBatchStatements() const { return {}; }

std::optional<SqlText> ServerDialect::ProcedureAsStatement(
    std::string_view /*procedure*/, const std::vector<std::int32_t>& /*parameters*/) const {
  return {};
}

}  // namespace koru
