#include "tests/tools/tds-stand-in/ScriptedServer.h"

#include <string_view>
#include <utility>

namespace koru::test {
namespace {

using Answer = ScriptedServer::Answer;

constexpr const char* kAsksName = "select db_name() as DatabaseName";

std::string Written(const ProcedureCall& call) {
  std::string parameters;
  for (const std::int32_t parameter : call.parameters) {
    parameters += (parameters.empty() ? "" : ",") + std::to_string(parameter);
  }
  return "CALL " + call.name + "(" + parameters + ")";
}

}  // namespace

ScriptedServer::ScriptedServer(Script script)
    : script_(std::move(script)),
      server_({.greets = [this] { return script_.greets; },
               .signIn = [this](int, const std::string& message) { return SignIn(message); },
               .batch = [this](int, const std::string& batch) { return TakeBatch(batch); },
               .call = [this](int, const ProcedureCall& call) { return Take(Written(call)); }}) {}

std::vector<std::string> ScriptedServer::Statements() const {
  const std::lock_guard<std::mutex> lock(guard_);
  return statements_;
}

std::vector<std::string> ScriptedServer::StatementsOfCallers() const {
  std::vector<std::string> callers;
  for (const std::string& statement : Statements()) {
    if (statement.starts_with("begin transaction;") || statement.ends_with(" as KoruState")) continue;
    if (statement == kAsksName) continue;
    callers.push_back(statement.substr(0, statement.find("\n;select scope_identity()")));
  }
  return callers;
}

int ScriptedServer::SignIns() const {
  const std::lock_guard<std::mutex> lock(guard_);
  return signIns_;
}

bool ScriptedServer::SignInHeld(const std::string& text) const {
  const std::lock_guard<std::mutex> lock(guard_);
  return lastSignIn_.find(Wide(text)) != std::string::npos;
}

Answer ScriptedServer::SignIn(const std::string& message) {
  {
    const std::lock_guard<std::mutex> lock(guard_);
    lastSignIn_ = message;
    ++signIns_;
  }
  return script_.signIn();
}

/// Splits what StatementTrip has put together.
std::vector<Answer> ScriptedServer::TakeBatch(const std::string& batch) {
  static constexpr std::string_view kFirstMark = "select -1 as KoruDone;\n";
  static constexpr std::string_view kTest = "\n;if @@error<>0 return;";
  if (!batch.starts_with(kFirstMark)) return {Take(batch)};
  std::vector<Answer> answers{OneField("KoruDone", -1)};
  std::size_t begin = kFirstMark.size();
  for (std::int64_t number = 0; begin < batch.size(); ++number) {
    const std::size_t end = batch.find(kTest, begin);
    const Answer answer = Take(batch.substr(begin, end - begin));
    if (answer.kind == Answer::Kind::Silence || answer.kind == Answer::Kind::Close) return {answer};
    answers.push_back(answer);
    if (answer.kind == Answer::Kind::Refusal) return answers;
    answers.push_back(OneField("KoruDone", number));
    begin = batch.find('\n', end + kTest.size()) + 1;
  }
  return answers;
}

Answer ScriptedServer::Take(const std::string& statement) {
  {
    const std::lock_guard<std::mutex> lock(guard_);
    statements_.push_back(statement);
  }
  Answer answer = script_.statement(statement);
  if (answer.kind != Answer::Kind::Done) return answer;
  if (statement.starts_with("begin transaction;")) return OneField("KoruLock", 0);
  if (statement.ends_with(" as KoruState")) return OneField("KoruState", 1);
  if (statement == kAsksName) return OneField("DatabaseName", "Suite");
  return answer;
}

Answer OneField(const std::string& column, std::int64_t number) {
  Recordset rows({column});
  rows.AppendInteger(number);
  return {Answer::Kind::Rows, 0, {}, rows};
}

Answer OneField(const std::string& column, const std::string& text) {
  Recordset rows({column});
  rows.AppendText(text);
  return {Answer::Kind::Rows, 0, {}, rows};
}

}  // namespace koru::test
