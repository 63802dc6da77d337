#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "tools/tds-stand-in/StandInDatabase.h"
#include "tools/tds-stand-in/StandInSession.h"
#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// A stand-in for the suite's server on a port of this machine, until destruction. Its database is empty at
/// first, and all its clients, of this program and of others, share it. README.md says what it cannot prove.
class StandInServer {
 public:
  /// What happens to a client at one of its requests.
  enum class Fault {
    CutBefore,  ///< the connection is closed, and the request has not run
    CutAfter,   ///< the request has run, and the connection is closed without an answer
    Deadlock    ///< the request has not run; the client is a deadlock's victim
  };

  StandInServer();

  [[nodiscard]] std::string ConnectionText() const { return server_.ConnectionText(); }

  /// The engine's file, for tests that look at what is stored.
  [[nodiscard]] std::string File() const { return database_.File(); }
  /// The number of requests that have arrived, batches and calls of procedures: each is a round trip.
  [[nodiscard]] std::uint64_t RoundTrips() const { return roundTrips_; }
  /// Lets statements without `order by` give their rows in the order of their keys to clients that sign in
  /// later, as most servers do and none promises; otherwise they come in another order.
  void GiveRowsByKey() { database_.GiveRowsByKey(); }
  /// How long each later request takes beside its work, as over a long line.
  void SetDelay(std::chrono::microseconds delay) { delay_ = delay.count(); }
  /// Applies the fault to one request from now on: 1 is the next one, 0 cancels.
  void ArrangeFault(int request, Fault fault);

 private:
  using Answers = std::vector<TdsServer::Answer>;
  template <class Work>
  Answers Answered(int client, Work work);
  /// A client that names no database is in that of the server.
  void SignIn(int client, const std::string& database);
  StandInSession& SessionOf(int client);

  StandInDatabase database_;
  std::mutex guard_;  ///< of what follows
  std::map<int, std::unique_ptr<StandInSession>> sessions_;
  int requestsToFault_ = 0;
  Fault fault_ = Fault::CutBefore;
  std::atomic<std::uint64_t> roundTrips_{0};
  std::atomic<std::chrono::microseconds::rep> delay_{0};
  TdsServer server_;  // last: its threads use the others
};

}  // namespace koru::test
