#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace koru::test {

/// A server on this machine that speaks as much of the suite's server's protocol (TDS 7.4) as a driver needs
/// to sign in and send statements, and answers them as a test says: also with silence, or by going away.
class ScriptedServer {
 public:
  struct Answer {
    enum class Kind { Done, Number, Day, Refusal, Silence, Close };
    Kind kind = Kind::Done;
    std::int32_t number = 0;  ///< of the one field, of the return value, or of the refusal
    std::string text;         ///< of the refusal; the name of the one field, N when empty
  };
  /// Whether it greets at all, and how it answers each sign-in and each statement. A procedure call arrives
  /// as "CALL name".
  struct Script {
    bool greets = true;
    std::function<Answer()> signIn = [] { return Answer{}; };
    std::function<Answer(const std::string& statement)> statement = [](const std::string&) {
      return Answer{};
    };
  };

  explicit ScriptedServer(Script script);
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;
  ~ScriptedServer();

  [[nodiscard]] int Port() const { return port_; }
  /// What the component would be given to reach it. User and password are "clerk" and "s3cret}pass".
  [[nodiscard]] std::string ConnectionText() const;
  /// The statements that have arrived, in UTF-8.
  [[nodiscard]] std::vector<std::string> Statements() const;
  /// How often somebody signed in.
  [[nodiscard]] int SignIns() const { return signIns_; }
  /// Whether the last sign-in held that text: a user or a database, but not the password, which is disguised.
  [[nodiscard]] bool SignInHeld(const std::string& text) const;

 private:
  struct Packet;

  void Serve();
  void Talk(int client);
  [[nodiscard]] bool ReadMessage(int client, Packet& message) const;
  [[nodiscard]] bool ReadBytes(int client, void* into, std::size_t count) const;
  /// False when the conversation is over.
  [[nodiscard]] bool Reply(int client, const Answer& answer, const std::string& success) const;
  void NoteSignIn(const std::string& message);
  [[nodiscard]] Answer Take(const std::string& statement);

  Script script_;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<bool> ending_{false};
  std::atomic<int> signIns_{0};
  mutable std::mutex guard_;
  std::vector<std::string> statements_;
  std::string lastSignIn_;
  std::thread thread_;
};

}  // namespace koru::test
