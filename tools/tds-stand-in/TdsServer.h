#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "platform/sql/Recordset.h"
#include "tools/tds-stand-in/TdsRequest.h"
#include "tools/tds-stand-in/TdsWire.h"

namespace koru::test {

/// A server on this machine that speaks the part of the suite's server's protocol (TDS 7.4) that a driver
/// needs to sign in, send statements and call procedures. The owner supplies the answers, which may also be
/// silence or a closed connection. Each client is served on a thread of its own.
class TdsServer {
 public:
  struct Answer {
    enum class Kind {
      Done,
      Rows,     ///< of a statement
      Refusal,  ///< with number and text
      Silence,  ///< also to a cancel
      Close     ///< closes that client's connection
    };
    Kind kind = Kind::Done;
    std::int32_t number = 0;  ///< of the refusal; what a procedure that is done returns
    std::string text = {};    ///< of the refusal
    Recordset rows = {};
    std::optional<std::uint64_t> written = {};  ///< by a statement that is done: how many rows
  };

  /// The answers; called on the clients' threads. An exception reaches the client as a refusal. Each
  /// connection has a number of its own.
  struct Handlers {
    std::function<bool()> greets;
    /// Receives what the client sent; the password in it is obfuscated.
    std::function<Answer(int client, const std::string& message)> signIn;
    /// One answer for each statement of the batch; Silence and Close are the only one.
    std::function<std::vector<Answer>(int client, const std::string& batch)> batch;
    std::function<Answer(int client, const ProcedureCall& call)> call;
    /// The connection is closed, by either side. May be empty.
    std::function<void(int client)> leaves = {};
  };

  /// The server's number for user-defined messages.
  static constexpr std::int32_t kOwnMessage = 50000;

  /// Throws std::runtime_error when no port is free.
  explicit TdsServer(Handlers handlers);
  TdsServer(const TdsServer&) = delete;
  TdsServer& operator=(const TdsServer&) = delete;
  /// Closes all connections.
  ~TdsServer();

  [[nodiscard]] int Port() const { return port_; }
  /// The connection text for the component. User and password are "clerk" and "s3cret}pass".
  [[nodiscard]] std::string ConnectionText() const;

 private:
  struct Client {
    Client(int handle, int clientNumber) : socket(handle), number(clientNumber) {}
    Socket socket;
    int number;
    std::atomic<bool> isGone{false};
    std::thread thread;
  };

  void Serve();
  void RemoveClosedConnections();
  void Talk(const Client& client) const;
  /// `hangs`: the message before this one was answered with silence.
  [[nodiscard]] std::vector<Answer> AnswersTo(int client, const TdsMessage& message, bool hangs) const;

  Handlers handlers_;
  Socket listener_;
  int port_ = 0;
  std::list<Client> clients_;  ///< used by the listening thread alone, while it runs
  std::thread thread_;
};

}  // namespace koru::test
