#pragma once

#include <cstddef>
#include <string_view>

namespace koru {

enum class SqlTokenKind {
  End,
  Word,            ///< a name or a keyword, also one in [brackets] or "quotes"
  Number,          ///< decimal: digits, point, exponent
  String,          ///< '...' with its apostrophes
  NationalString,  ///< N'...' with the N and its apostrophes
  Parameter,       ///< ? or @name
  Symbol,          ///< an operator or punctuation; <=, >=, <>, != are one token each
  Comment,         ///< -- to the end of the line, or /* ... */
  Broken           ///< an unterminated literal, bracket or comment, up to the end of the text
};

struct SqlToken {
  SqlTokenKind kind = SqlTokenKind::End;
  std::size_t begin = 0;  ///< in bytes
  std::size_t end = 0;
};

/// Splits a statement in the dialect of the suite's server into tokens, from left to right. Every byte of the
/// text is part of a token or is white space.
class SqlLexer {
 public:
  /// `text` must outlive the lexer. The first token is the first one after `begin`, a place between two
  /// tokens.
  explicit SqlLexer(std::string_view text, std::size_t begin = 0) : text_(text), at_(begin) {}

  /// The next token; at the end of the text always End.
  SqlToken Next();
  [[nodiscard]] std::string_view TextOf(SqlToken token) const {
    return text_.substr(token.begin, token.end - token.begin);
  }

 private:
  SqlToken Take(SqlTokenKind kind, std::size_t length);
  /// A token up to and including the closing character. A doubled closing character is part of the content.
  SqlToken TakeQuoted(SqlTokenKind kind, std::size_t opening, char close);
  SqlToken TakeComment(std::string_view close, bool mayRunToEnd);
  SqlToken TakeNumber();
  SqlToken TakeWord(SqlTokenKind kind);
  [[nodiscard]] char Peek(std::size_t ahead) const {
    return at_ + ahead < text_.size() ? text_[at_ + ahead] : '\0';
  }

  std::string_view text_;
  std::size_t at_;
};

}  // namespace koru
