#include "tests/tools/tds-stand-in/ScriptedServer.h"

#include <utility>

namespace koru::test {
namespace {

using Answer = ScriptedServer::Answer;

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
               .batch = [this](int, const std::string& batch) { return std::vector{Take(batch)}; },
               .call = [this](int, const ProcedureCall& call) { return Take(Written(call)); }}) {}

std::vector<std::string> ScriptedServer::Statements() const {
  const std::lock_guard<std::mutex> lock(guard_);
  return statements_;
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

Answer ScriptedServer::Take(const std::string& statement) {
  {
    const std::lock_guard<std::mutex> lock(guard_);
    statements_.push_back(statement);
  }
  return script_.statement(statement);
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
