#include "tools/tds-stand-in/StandInServer.h"

#include <optional>
#include <thread>
#include <utility>

#include "tools/tds-stand-in/TdsRequest.h"

namespace koru::test {

using Answer = TdsServer::Answer;

StandInServer::StandInServer()
    : server_({.greets = [] { return true; },
               .signIn =
                   [this](int client, const std::string& message) {
                     SignIn(client, ReadDatabase(message));
                     return Answer{};
                   },
               .batch =
                   [this](int client, const std::string& batch) {
                     return Answered(client, [&](StandInSession& session) { return session.Run(batch); });
                   },
               .call =
                   [this](int client, const ProcedureCall& call) {
                     return Answered(client,
                                     [&](StandInSession& session) { return Answers{session.Call(call)}; })
                         .front();
                   },
               .leaves =
                   [this](int client) {
                     std::unique_lock<std::mutex> lock(guard_);
                     const auto session = sessions_.extract(client);
                     lock.unlock();  // what the session held may be waited for meanwhile
                   }}) {}

void StandInServer::ArrangeFault(int request, Fault fault) {
  const std::lock_guard<std::mutex> lock(guard_);
  requestsToFault_ = request;
  fault_ = fault;
}

void StandInServer::SignIn(int client, const std::string& database) {
  auto session = std::make_unique<StandInSession>(database_, database.empty() ? "master" : database);
  const std::lock_guard<std::mutex> lock(guard_);
  sessions_[client] = std::move(session);
}

StandInSession& StandInServer::SessionOf(int client) {
  const std::lock_guard<std::mutex> lock(guard_);
  return *sessions_.at(client);
}

template <class Work>
StandInServer::Answers StandInServer::Answered(int client, Work work) {
  ++roundTrips_;
  std::this_thread::sleep_for(std::chrono::microseconds(delay_));
  std::optional<Fault> fault;
  {
    const std::lock_guard<std::mutex> lock(guard_);
    if (requestsToFault_ > 0 && --requestsToFault_ == 0) fault = fault_;
  }
  if (fault == Fault::CutBefore) return {{Answer::Kind::Close}};
  StandInSession& session = SessionOf(client);
  if (fault == Fault::Deadlock) return {session.LoseDeadlock()};
  Answers answers = work(session);
  if (fault == Fault::CutAfter) return {{Answer::Kind::Close}};
  return answers;
}

}  // namespace koru::test
