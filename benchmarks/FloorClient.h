#pragma once

#include <cstdint>
#include <string>

namespace koru::bench {

/// A device's connection, which waits for its answers: for threads of their own beside the desk's.
class FloorClient {
 public:
  FloorClient(std::uint16_t port, std::string code);
  FloorClient(const FloorClient&) = delete;
  FloorClient& operator=(const FloorClient&) = delete;
  ~FloorClient();

  /// The body of the answer, as it comes. Throws unless it is 200.
  std::string Get(const std::string& target);
  std::string Post(const std::string& target, const std::string& body);

 private:
  std::string Exchange(const std::string& request);

  int socket_;
  std::string code_;
  std::string read_;
};

}  // namespace koru::bench
