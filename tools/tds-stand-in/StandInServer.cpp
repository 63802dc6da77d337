#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {

StandInServer::StandInServer()
    : server_({.greets = [] { return true; },
               .signIn = [](const std::string&) { return TdsServer::Answer{}; },
               .batch = [this](const std::string& batch) { return database_.Run(batch); },
               .call = [this](const ProcedureCall& call) { return database_.Call(call); }}) {}

}  // namespace koru::test
