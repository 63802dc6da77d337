#include "adapters/sqlite/StatementShape.h"

#include <charconv>
#include <string_view>

#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

constexpr std::size_t kExpectedLiterals = 16;

[[noreturn]] void Refuse(const std::string& why, const std::string& statement) {
  throw DatabaseError(why, kBrokenStatement, statement);
}

/// What a text literal means; `opening` is the size of what stands before its content.
std::string Content(std::string_view literal, std::size_t opening) {
  literal = literal.substr(opening, literal.size() - opening - 1);
  std::string content;
  content.reserve(literal.size());
  for (std::size_t at = 0; at < literal.size(); ++at) {
    content += literal[at];
    if (literal[at] == '\'') ++at;
  }
  return content;
}

Literal Number(std::string_view literal) {
  const char* const end = literal.data() + literal.size();
  std::int64_t whole = 0;
  const auto asWhole = std::from_chars(literal.data(), end, whole);
  if (asWhole.ec == std::errc() && asWhole.ptr == end) return whole;
  return Val(literal);
}

/// Appends what stands for a token that is not copied as it is.
void Append(StatementShape& shape, SqlToken token, std::string_view text, const std::string& statement) {
  switch (token.kind) {
    case SqlTokenKind::End:
    case SqlTokenKind::Comment:
      break;
    case SqlTokenKind::Broken:
      Refuse("Unclosed quotation mark, bracket or comment.", statement);
    case SqlTokenKind::Parameter:
      Refuse("A parameter without a value: " + std::string(text), statement);
    case SqlTokenKind::Number:
      shape.text += '?';
      shape.literals.push_back(Number(text));
      break;
    case SqlTokenKind::String:
    case SqlTokenKind::NationalString:
      shape.text += "'?'";
      shape.literals.emplace_back(Content(text, token.kind == SqlTokenKind::String ? 1 : 2));
      break;
    case SqlTokenKind::Word:
    case SqlTokenKind::Symbol:
      break;
  }
}

}  // namespace

StatementShape ReadShape(const std::string& statement) {
  if (statement.find('\0') != std::string::npos) Refuse("A statement has no NUL characters.", statement);
  StatementShape shape;
  shape.text.reserve(statement.size());
  shape.literals.reserve(kExpectedLiterals);
  SqlLexer lexer(statement);
  std::size_t behindLast = 0;
  std::size_t run = 0;  // what stands from here to behindLast is copied as it is
  const auto copyRun = [&] { shape.text.append(statement, run, behindLast - run); };
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind == SqlTokenKind::Symbol && lexer.TextOf(token) == ";") {
      if (lexer.Next().kind != SqlTokenKind::End) Refuse("More than one statement in a call.", statement);
      break;
    }
    const bool isKept = token.kind == SqlTokenKind::Word || token.kind == SqlTokenKind::Symbol;
    const bool follows =
        token.begin == behindLast || (token.begin == behindLast + 1 && statement[behindLast] == ' ');
    if (!isKept || !follows || run == behindLast) {
      copyRun();
      const bool isComment = token.kind == SqlTokenKind::Comment;
      if ((token.begin > behindLast || isComment) && !shape.text.empty() && shape.text.back() != ' ')
        shape.text += ' ';
      if (!isKept) Append(shape, token, lexer.TextOf(token), statement);
      run = isKept ? token.begin : token.end;
    }
    behindLast = token.end;
  }
  copyRun();
  return shape;
}

}  // namespace koru
