#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/SqlLexer.h"
#include "services/SharedState.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TestDatabase.h"

namespace koru {

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

/// What the search forms stand on: a fresh database, a screen, and a person who reads messages.
class SearchTest : public ::testing::Test {
 protected:
  SearchTest() {
    messages.RegisterIn(components);
    shared.data.SetConnectionString(database.ConnectionText());
    shared.user.userID = 5;
  }

  /// The statements that were sent since the last call.
  std::vector<std::string> Sent() {
    std::vector<std::string> statements = recording_.Statements();
    recording_.ForgetStatements();
    return statements;
  }

  test::TestDatabase database;
  test::FakeScreen screen;
  test::FakeMessages messages;
  ComponentRegistry components;

 private:
  struct NoFiles : FileSystem {
    [[nodiscard]] bool FileExists(const std::string& /*path*/) const override { return false; }
  };
  struct NoSpreadsheets : SpreadsheetStarter {
    [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override {
      throw std::logic_error("no spreadsheet is needed");
    }
  };

  test::RecordingConnector recording_{database.Connector()};
  test::FixedClock clock_{Date{std::chrono::year(2024) / 3 / 20}};
  NoFiles files_;
  NoSpreadsheets spreadsheets_;

 protected:
  SharedState shared{HostServices{recording_, components, screen, clock_, files_, spreadsheets_}};
};

}  // namespace koru
