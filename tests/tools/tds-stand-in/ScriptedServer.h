#pragma once

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// A server that answers statements as a test says, and records what it receives. Statements that are sent
/// together are answered one by one. Where the test gives no rows for the begin and the end of a write batch,
/// they succeed.
class ScriptedServer {
 public:
  using Answer = TdsServer::Answer;

  /// Whether it greets at all, and how it answers each sign-in and each statement. A procedure call arrives
  /// as "CALL name(parameter,...)".
  struct Script {
    bool greets = true;
    std::function<Answer()> signIn = [] { return Answer{}; };
    std::function<Answer(const std::string& statement)> statement = [](const std::string&) {
      return Answer{};
    };
  };

  explicit ScriptedServer(Script script);

  [[nodiscard]] int Port() const { return server_.Port(); }
  [[nodiscard]] std::string ConnectionText() const { return server_.ConnectionText(); }
  /// The statements that have arrived, in UTF-8.
  [[nodiscard]] std::vector<std::string> Statements() const;
  /// These without what the connection adds of its own: write batches, the question for the database's name,
  /// and the question for the key of an insert.
  [[nodiscard]] std::vector<std::string> StatementsOfCallers() const;
  /// The number of sign-ins.
  [[nodiscard]] int SignIns() const;
  /// Whether the last sign-in held that text: a user or a database, but not the password, which is
  /// obfuscated.
  [[nodiscard]] bool SignInHeld(const std::string& text) const;

 private:
  [[nodiscard]] Answer SignIn(const std::string& message);
  std::vector<Answer> TakeBatch(const std::string& batch);
  [[nodiscard]] Answer Take(const std::string& statement);

  Script script_;
  mutable std::mutex guard_;
  std::vector<std::string> statements_;
  std::string lastSignIn_;
  int signIns_ = 0;
  TdsServer server_;  // last: its threads use the members above
};

/// One record with one field.
[[nodiscard]] ScriptedServer::Answer OneField(const std::string& column, std::int64_t number);
[[nodiscard]] ScriptedServer::Answer OneField(const std::string& column, const std::string& text);

}  // namespace koru::test
