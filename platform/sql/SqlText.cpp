#include "platform/sql/SqlText.h"

#include <algorithm>
#include <stdexcept>

#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

using Span = SqlText::Span;

[[noreturn]] void Refuse(const SqlText& sql) {
  throw DatabaseError("Unclosed quotation mark or incorrect syntax near a typed text.", kBrokenStatement,
                      sql.Text());
}

/// Whether the two apostrophes of a doubled pair belong to different spans, or only one of them to a span.
bool TearsPair(std::size_t pair, const Span& span) {
  const bool first = pair >= span.begin && pair < span.end;
  const bool second = pair + 1 >= span.begin && pair + 1 < span.end;
  return first != second;
}

/// Checks the spans that begin inside the literal; returns the first span after it.
std::size_t CheckLiteral(const SqlText& sql, SqlToken literal, std::size_t opening, std::size_t next) {
  const std::vector<Span>& spans = sql.TypedSpans();
  for (; next < spans.size() && spans[next].begin < literal.end; ++next) {
    const Span& span = spans[next];
    if (span.begin < literal.begin + opening || span.end > literal.end - 1) Refuse(sql);
    for (std::size_t at = literal.begin + opening; at + 1 < literal.end; ++at) {
      if (sql.Text()[at] != '\'') continue;
      if (TearsPair(at, span)) Refuse(sql);
      ++at;
    }
  }
  return next;
}

}  // namespace

SqlName::SqlName(std::string_view name) : text(name) {
  const auto isNamePart = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  };
  if (name.empty() || !std::all_of(name.begin(), name.end(), isNamePart)) {
    throw std::invalid_argument("not the name of a table or column");
  }
}

SqlText& SqlText::operator+=(double number) {
  text_ += NumberText(number);
  return *this;
}

SqlText& SqlText::operator+=(Date date) {
  text_ += IsoText(date);
  return *this;
}

SqlText& SqlText::operator+=(Typed typed) {
  const std::size_t begin = text_.size();
  text_ += typed.text;
  typed_.push_back({begin, text_.size()});
  return *this;
}

SqlText& SqlText::operator+=(const SqlText& other) {
  // `other` may be *this: only the text before the call counts.
  const std::size_t shift = text_.size();
  const std::size_t spans = other.typed_.size();
  text_.append(other.text_, 0, other.text_.size());
  for (std::size_t i = 0; i < spans; ++i) {
    const Span span = other.typed_[i];
    typed_.push_back({span.begin + shift, span.end + shift});
  }
  return *this;
}

void CheckTypedSpans(const SqlText& sql) {
  if (sql.Text().find('\0') != std::string::npos) Refuse(sql);
  const std::vector<Span>& spans = sql.TypedSpans();
  std::size_t next = 0;
  SqlLexer lexer(sql.Text());
  while (next < spans.size()) {
    const SqlToken token = lexer.Next();
    if (token.kind == SqlTokenKind::End || token.kind == SqlTokenKind::Broken) Refuse(sql);
    if (spans[next].begin >= token.end) continue;
    const bool national = token.kind == SqlTokenKind::NationalString;
    if (token.kind != SqlTokenKind::String && !national) Refuse(sql);
    next = CheckLiteral(sql, token, national ? 2 : 1, next);
  }
}

}  // namespace koru
