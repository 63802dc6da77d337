// Whatever bytes a connection sends, what reaches the service keeps to the limits, and what comes back is
// HTTP; and a right request is answered afterwards.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <cerrno>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "desktop/floor/server/HttpServer.h"
#include "fuzz/Require.h"

namespace {

using koru::fuzz::Require;

constexpr unsigned kOk = 200;
constexpr int kQuietRuns = 4;  ///< after which nothing more comes
constexpr std::uint32_t kLoopback = 0x7F000001U;

/// Answers what it is asked with what it was asked.
class EchoService : public koru::HttpService {
 public:
  [[nodiscard]] std::optional<koru::HttpAnswer> Admit(const koru::HttpRequest& head) override {
    Require(!head.method.empty(), "a request has a method");
    Require(head.path.size() + head.host.size() + head.authorization.size() <= koru::kMaxHttpHead,
            "a head is bounded");
    if (head.path.starts_with("/a")) return std::nullopt;
    return koru::HttpAnswer(kOk, "text/plain", head.path);
  }
  void Receive(koru::HttpExchange& exchange) override {
    const koru::HttpRequest& request = exchange.Request();
    Require(request.body.size() <= koru::kMaxHttpBody, "a body is bounded");
    Require(request.method == "POST" || request.body.empty(), "only POST has a body");
    exchange.Answer(koru::HttpAnswer(kOk, "text/plain", request.body));
  }
};

class Server {
 public:
  /// Sends the bytes on a connection of its own and reads all that comes.
  std::string Exchange(std::string_view bytes) {
    const int client = Connect();
    // Half of it comes later, when the first half has been read.
    Send(client, bytes.substr(0, bytes.size() / 2));
    server_.Run();
    Send(client, bytes.substr(bytes.size() / 2));
    shutdown(client, SHUT_WR);
    std::string answers;
    for (int quiet = 0; quiet < kQuietRuns; ++quiet) {
      server_.Run();
      std::array<char, 4096> piece{};
      const ssize_t size = recv(client, piece.data(), piece.size(), MSG_DONTWAIT);
      if (size == 0) break;
      if (size < 0) continue;
      answers.append(piece.data(), static_cast<std::size_t>(size));
      quiet = 0;
    }
    const linger atOnce{1, 0};
    setsockopt(client, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    close(client);
    server_.Run();
    return answers;
  }

 private:
  /// From another address each time, so that no address runs out of ports.
  int Connect() {
    constexpr std::uint32_t kAddresses = 1U << 22U;
    const int client = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_addr.s_addr = htonl(kLoopback + ++last_ % kAddresses);
    sockaddr_in server = own;
    server.sin_addr.s_addr = htonl(kLoopback);
    server.sin_port = htons(server_.Port());
    Require(bind(client, reinterpret_cast<sockaddr*>(&own), sizeof own) == 0, "an address is free");
    if (connect(client, reinterpret_cast<sockaddr*>(&server), sizeof server) != 0) {
      Require(errno == EINTR, "the server accepts");  // the clock of the fuzzer
      close(client);
      return Connect();
    }
    return client;
  }
  void Send(int client, std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t sent = send(client, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
      if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
      if (sent < 0 && errno != EAGAIN && errno != EWOULDBLOCK) return;  // it has been refused already
      if (!bytes.empty()) server_.Run();
    }
  }

  int arguments_ = 0;
  QCoreApplication application_{arguments_, nullptr};
  EchoService service_;
  koru::HttpServer server_{service_, 0, koru::HttpLimits(), [] {}};
  std::uint32_t last_ = 0;
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Server server;
  const std::string answers = server.Exchange(koru::fuzz::TextOf(data, size));
  const std::string right = server.Exchange("GET /right HTTP/1.1\r\nHost: desk\r\nConnection: close\r\n\r\n");
  Require(right.starts_with("HTTP/1.1 200") && right.ends_with("/right"), "a right request is answered");
  Require(answers.empty() || answers.starts_with("HTTP/1."), "an answer is one of HTTP");
  return 0;
}
