#include "platform/sql/SqlLexer.h"

#include <algorithm>
#include <array>

namespace koru {
namespace {

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
/// A word may contain letters of any script, so every non-ASCII byte counts as a letter.
constexpr auto kWordBytes = [] {
  std::array<bool, 256> bytes{};
  for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
    bytes[byte] = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                  (byte >= '0' && byte <= '9') || byte == '_' || byte == '#' || byte == '$' || byte >= 0x80U;
  }
  return bytes;
}();
bool IsWord(char c) { return kWordBytes[static_cast<unsigned char>(c)]; }

}  // namespace

SqlToken SqlLexer::Next() {
  while (at_ < text_.size() && IsSpace(text_[at_])) ++at_;
  if (at_ == text_.size()) return {SqlTokenKind::End, at_, at_};
  const char c = text_[at_];
  if (IsDigit(c)) return TakeNumber();
  const char next = Peek(1);
  switch (c) {
    case '\'':
      return TakeQuoted(SqlTokenKind::String, 1, '\'');
    case 'N':
    case 'n':
      if (next == '\'') return TakeQuoted(SqlTokenKind::NationalString, 2, '\'');
      break;
    case '"':
      return TakeQuoted(SqlTokenKind::Word, 1, '"');
    case '[':
      return TakeQuoted(SqlTokenKind::Word, 1, ']');
    case '-':
      if (next == '-') return TakeComment("\n", true);
      break;
    case '/':
      if (next == '*') return TakeComment("*/", false);
      break;
    case '.':
      if (IsDigit(next)) return TakeNumber();
      break;
    case '@':
      return TakeWord(SqlTokenKind::Parameter);
    case '?':
      return Take(SqlTokenKind::Parameter, 1);
    case '<':
      return Take(SqlTokenKind::Symbol, next == '=' || next == '>' ? 2 : 1);
    case '>':
    case '!':
      return Take(SqlTokenKind::Symbol, next == '=' ? 2 : 1);
    default:
      break;
  }
  return IsWord(c) ? TakeWord(SqlTokenKind::Word) : Take(SqlTokenKind::Symbol, 1);
}

SqlToken SqlLexer::Take(SqlTokenKind kind, std::size_t length) {
  const std::size_t begin = at_;
  at_ = std::min(at_ + length, text_.size());
  return {kind, begin, at_};
}

SqlToken SqlLexer::TakeQuoted(SqlTokenKind kind, std::size_t opening, char close) {
  std::size_t end = at_ + opening;
  while (true) {
    end = text_.find(close, end);
    if (end == std::string_view::npos) return Take(SqlTokenKind::Broken, text_.size() - at_);
    if (end + 1 == text_.size() || text_[end + 1] != close) break;
    end += 2;
  }
  return Take(kind, end + 1 - at_);
}

SqlToken SqlLexer::TakeComment(std::string_view close, bool mayRunToEnd) {
  const std::size_t end = text_.find(close, at_ + 2);
  if (end != std::string_view::npos) return Take(SqlTokenKind::Comment, end + close.size() - at_);
  return Take(mayRunToEnd ? SqlTokenKind::Comment : SqlTokenKind::Broken, text_.size() - at_);
}

SqlToken SqlLexer::TakeNumber() {
  std::size_t length = 0;
  while (IsDigit(Peek(length))) ++length;
  if (Peek(length) == '.') {
    ++length;
    while (IsDigit(Peek(length))) ++length;
  }
  if (Peek(length) == 'e' || Peek(length) == 'E') {
    const std::size_t sign = Peek(length + 1) == '+' || Peek(length + 1) == '-' ? 1 : 0;
    if (IsDigit(Peek(length + 1 + sign))) {
      length += 1 + sign;
      while (IsDigit(Peek(length))) ++length;
    }
  }
  return Take(SqlTokenKind::Number, length);
}

SqlToken SqlLexer::TakeWord(SqlTokenKind kind) {
  const auto end = std::find_if_not(text_.begin() + at_ + 1, text_.end(), IsWord);
  return Take(kind, static_cast<std::size_t>(end - text_.begin()) - at_);
}

}  // namespace koru
