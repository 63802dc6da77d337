#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace koru::test {

/// A device's connection, which waits for its answers: for threads of their own beside the desk's.
class BlockingClient {
 public:
  BlockingClient(std::uint16_t port, std::string code);
  BlockingClient(const BlockingClient&) = delete;
  BlockingClient& operator=(const BlockingClient&) = delete;
  virtual ~BlockingClient();

  /// The body of the answer, as it comes. Throws unless it is 200.
  std::string Get(const std::string& target);
  std::string Post(const std::string& target, const std::string& body);
  /// Ends the connection, also from another thread: a request that waits for its answer throws.
  void HangUp();

 protected:
  // On the connection, as send and recv return.
  virtual std::ptrdiff_t Send(const char* data, std::size_t size);
  virtual std::ptrdiff_t Receive(char* data, std::size_t size);
  [[nodiscard]] int Socket() const { return socket_; }

 private:
  std::string Exchange(const std::string& request);

  int socket_;
  std::string code_;
  std::string read_;
};

}  // namespace koru::test
