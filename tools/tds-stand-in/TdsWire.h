#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace koru::test {

/// The parts of messages of the suite's server's protocol (TDS 7.4), and how a socket transports them.

/// A number in that many bytes, the lowest first.
[[nodiscard]] std::string Little(std::uint64_t number, int bytes);
/// The number in the first `bytes` of `text`; throws std::out_of_range when there are fewer.
[[nodiscard]] std::uint64_t ReadLittle(std::string_view text, std::size_t bytes);

/// UTF-8 as the bytes of UTF-16, the lower byte first, and back.
[[nodiscard]] std::string Wide(std::string_view utf8);
[[nodiscard]] std::string Narrow(std::string_view bytes);

/// A connected or listening socket; closed on destruction.
class Socket {
 public:
  explicit Socket(int handle) : handle_(handle) {}
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  ~Socket();

  [[nodiscard]] int Handle() const { return handle_; }
  /// Ends every wait on it, also in another thread.
  void HangUp() const;

 private:
  int handle_;
};

/// A message of either side.
struct TdsMessage {
  enum Type : std::uint8_t { Batch = 1, Call = 3, Reply = 4, Cancel = 6, SignIn = 16, Greeting = 18 };

  std::uint8_t type = 0;
  std::string body;  ///< put together from its packets
};

/// Waits for a whole message; no value when the connection is closed before its end.
[[nodiscard]] std::optional<TdsMessage> Receive(const Socket& client);

/// Sends a reply in packets of the initial size. A closed connection is ignored.
void SendReply(const Socket& client, std::string_view body);

}  // namespace koru::test
