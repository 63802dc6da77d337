#include "tools/tds-stand-in/ServerBatch.h"

#include <algorithm>
#include <utility>

#include "platform/text/Text.h"

namespace koru::test {

ServerBatch::ServerBatch(std::string text) : text_(std::move(text)) {
  SqlLexer lexer(text_);
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind != SqlTokenKind::Comment) tokens_.push_back(token);
  }
}

std::string ServerBatch::Word(std::size_t at) const {
  return text_.substr(Token(at).begin, Token(at).end - Token(at).begin);
}

SqlToken ServerBatch::Token(std::size_t at) const { return at < Size() ? tokens_[at] : SqlToken{}; }

bool ServerBatch::Has(std::size_t at, std::initializer_list<std::string_view> words) const {
  return std::all_of(words.begin(), words.end(), [&](std::string_view word) {
    const std::string there = Word(at++);
    return word.empty() ? !there.empty() : EqualsNoCase(there, word);
  });
}

std::string ServerBatch::Between(std::size_t first, std::size_t afterLast) const {
  return text_.substr(tokens_[first].begin, tokens_[afterLast - 1].end - tokens_[first].begin);
}

std::vector<ServerBatch> ServerBatch::Parts() const {
  std::vector<ServerBatch> parts;
  std::size_t begin = 0;
  for (std::size_t at = 0; at <= Size(); ++at) {
    if (at < Size() && Word(at) != ";") continue;
    if (begin < at) parts.emplace_back(Between(begin, at));
    begin = at + 1;
  }
  return parts;
}

std::size_t ServerBatch::EndOfPart(std::size_t at) const {
  for (int depth = 0; at < Size(); ++at) {
    const std::string word = Word(at);
    if (depth == 0 && (word == "," || word == ")")) break;
    if (word == "(") ++depth;
    if (word == ")") --depth;
  }
  return at;
}

std::size_t ServerBatch::Closing(std::size_t open) const {
  std::size_t at = EndOfPart(open + 1);
  while (Word(at) == ",") at = EndOfPart(at + 1);
  return at;
}

}  // namespace koru::test
