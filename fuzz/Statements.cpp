// A statement is taken apart into a text and its literals, or refused. Put together again they are the same
// statement; the translation of any text ends, and is refused or gives a text.

#include "fuzz/NormalizedStatement.h"

#include <array>
#include <cstdio>
#include <string>
#include <variant>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/Schema.h"
#include "fuzz/Require.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"

namespace {

using koru::NormalizedStatement;
using koru::fuzz::Require;

std::string Written(const koru::Literal& literal) {
  if (const auto* text = std::get_if<std::string>(&literal)) {
    std::string doubled = "'";
    for (const char c : *text) doubled += c == '\'' ? std::string("''") : std::string(1, c);
    return doubled + "'";
  }
  if (const auto* whole = std::get_if<std::int64_t>(&literal)) return std::to_string(*whole);
  std::array<char, 64> number{};
  static_cast<void>(
      std::snprintf(number.data(), number.size(), "%.17e", std::get<double>(literal)));  // NOLINT(*-vararg)
  return number.data();
}

/// The statement with its literals in their places, blanks around numbers.
std::string Together(const NormalizedStatement& parts) {
  std::string statement;
  std::size_t next = 0;
  koru::SqlLexer lexer(parts.text);
  std::size_t copied = 0;
  for (koru::SqlToken token = lexer.Next(); token.kind != koru::SqlTokenKind::End; token = lexer.Next()) {
    const bool isText = token.kind == koru::SqlTokenKind::String;
    if (!isText && token.kind != koru::SqlTokenKind::Parameter) continue;
    Require(lexer.TextOf(token) == (isText ? "'?'" : "?"), "the text holds no literal");
    Require(next < parts.literals.size(), "each place has a literal");
    const koru::Literal& literal = parts.literals[next++];
    Require(std::holds_alternative<std::string>(literal) == isText, "a literal has the kind of its place");
    statement += parts.text.substr(copied, token.begin - copied);
    statement +=
        isText ? Written(literal) : " " + Written(literal) + " ";  // two numbers may touch each other
    copied = token.end;
  }
  Require(next == parts.literals.size(), "each literal has a place");
  return statement + parts.text.substr(copied);
}

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

koru::SqliteConnection& Suite() {
  static koru::SqliteConnection connection = [] {
    koru::SqliteConnection made(":memory:", koru::SqliteConnection::Mode::Create, std::chrono::seconds(0));
    made.Execute(std::string(koru::EmbeddedSchema()));
    return made;
  }();
  return connection;
}

void CheckTranslation(const std::string& text) {
  try {
    koru::fuzz::TranslateBoth(text, Suite());
  } catch (const koru::DatabaseError& refused) {
    Require(!refused.ServerText().empty(), "a refusal has a sentence");
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  NormalizedStatement parts;
  try {
    parts = koru::Normalize(std::string(koru::fuzz::TextOf(data, size)));
  } catch (const koru::DatabaseError& refused) {
    Require(!refused.ServerText().empty(), "a refusal has a sentence");
    return 0;
  }
  const NormalizedStatement again = koru::Normalize(Together(parts));
  Require(WithoutBlanks(again.text) == WithoutBlanks(parts.text), "the same text");
  Require(again.literals == parts.literals, "the same literals");
  CheckTranslation(parts.text);
  return 0;
}
