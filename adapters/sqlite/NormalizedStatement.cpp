#include "adapters/sqlite/NormalizedStatement.h"

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

bool IsLiteral(SqlToken token) {
  return token.kind == SqlTokenKind::Number || token.kind == SqlTokenKind::String ||
         token.kind == SqlTokenKind::NationalString;
}

/// The value of a text literal; `opening` is the length of its `'` or `N'`.
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

/// Appends the replacement of a token that is not copied unchanged.
void Append(NormalizedStatement& normalized, SqlToken token, std::string_view text,
            const std::string& statement) {
  switch (token.kind) {
    case SqlTokenKind::End:
    case SqlTokenKind::Comment:
      break;
    case SqlTokenKind::Broken:
      Refuse("Unclosed quotation mark, bracket or comment.", statement);
    case SqlTokenKind::Parameter:
      Refuse("A parameter without a value: " + std::string(text), statement);
    case SqlTokenKind::Number:
      normalized.text += '?';
      normalized.literals.push_back(Number(text));
      break;
    case SqlTokenKind::String:
    case SqlTokenKind::NationalString:
      // As in `''N'x'`: without the blank the two would read as one text with an apostrophe.
      if (normalized.text.ends_with('\'')) normalized.text += ' ';
      normalized.text += "'?'";
      normalized.literals.emplace_back(Content(text, token.kind == SqlTokenKind::String ? 1 : 2));
      break;
    case SqlTokenKind::Word:
    case SqlTokenKind::Symbol:
      break;
  }
}

/// The beginning, of which `normalized` was made, holds no literal; a `(` at its end is a token, since words
/// in brackets and comments end otherwise.
void KeepLead(std::string_view beginning, const std::string& normalized, StatementLead& lead) {
  const bool isLead = beginning.ends_with('(');
  lead.text = isLead ? beginning : std::string_view();
  lead.normalized = isLead ? std::string_view(normalized) : std::string_view();
}

}  // namespace

NormalizedStatement Normalize(const std::string& statement) {
  StatementLead none;
  return Normalize(statement, none);
}

NormalizedStatement Normalize(const std::string& statement, StatementLead& lead) {
  if (statement.find('\0') != std::string::npos) Refuse("A statement has no NUL characters.", statement);
  NormalizedStatement normalized;
  normalized.text.reserve(statement.size());
  normalized.literals.reserve(kExpectedLiterals);
  const bool isKnown = !lead.text.empty() && statement.starts_with(lead.text);
  if (isKnown) normalized.text += lead.normalized;
  std::size_t endOfLast = isKnown ? lead.text.size() : 0;
  std::size_t run = endOfLast;  // [run, endOfLast) is copied unchanged
  SqlLexer lexer(statement, endOfLast);
  const auto copyRun = [&] { normalized.text.append(statement, run, endOfLast - run); };
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind == SqlTokenKind::Symbol && statement[token.begin] == ';') {
      if (lexer.Next().kind != SqlTokenKind::End) Refuse("More than one statement in a call.", statement);
      break;
    }
    const bool isKept = token.kind == SqlTokenKind::Word || token.kind == SqlTokenKind::Symbol;
    const bool follows =
        token.begin == endOfLast || (token.begin == endOfLast + 1 && statement[endOfLast] == ' ');
    if (!isKept || !follows || run == endOfLast) {
      copyRun();
      if (!isKnown && IsLiteral(token) && normalized.literals.empty())
        KeepLead(std::string_view(statement).substr(0, endOfLast), normalized.text, lead);
      const bool isComment = token.kind == SqlTokenKind::Comment;
      if ((token.begin > endOfLast || isComment) && !normalized.text.empty() && normalized.text.back() != ' ')
        normalized.text += ' ';
      if (!isKept) Append(normalized, token, lexer.TextOf(token), statement);
      run = isKept ? token.begin : token.end;
    }
    endOfLast = token.end;
  }
  copyRun();
  return normalized;
}

}  // namespace koru
