#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/sql/SqlLexer.h"
#include "services/SharedState.h"
#include "tests/support/DatabaseFixture.h"

namespace koru {

using test::Texts;

/// `text` as a literal of a statement that puts rows into the database.
inline std::string Literal(std::string_view text) {
  std::string literal = "'";
  for (const char c : text) literal += c == '\'' ? std::string("''") : std::string(1, c);
  return literal + "'";
}

/// What a statement does, whatever its texts and numbers say.
inline std::string Shape(const std::string& statement) {
  SqlLexer lexer(statement);
  std::string shape;
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    const bool isText = token.kind == SqlTokenKind::String;
    const bool isNumber = token.kind == SqlTokenKind::Number;
    shape += isText ? "text" : isNumber ? "number" : std::string(lexer.TextOf(token));
    shape += ' ';
  }
  return shape;
}

/// The search forms' host, over a fresh database; user 5 is signed in.
class SearchTest : public ::testing::Test, protected test::DatabaseFixture {
 protected:
  SearchTest() {
    shared.data.SetConnectionString(database.ConnectionText());
    shared.user.userID = 5;
  }

  SharedState shared{Services()};
};

}  // namespace koru
