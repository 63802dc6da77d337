#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desktop/floor/server/HttpAnswer.h"

namespace koru {

struct HttpRequest {
  std::string method;
  std::string path;  ///< without the query, percent signs resolved
  std::vector<std::pair<std::string, std::string>> query;
  std::string host;           ///< the header field; empty when there is none
  std::string authorization;  ///< the header field
  std::uint32_t address = 0;  ///< of the client, IPv4
  bool acceptsGzip = false;
  std::string body;

  /// The value of the first field of the query with that name.
  [[nodiscard]] std::optional<std::string_view> Query(std::string_view name) const;
};

/// A whole request that waits for its answer. It exists until it is answered or its server is destroyed.
class HttpExchange {
 public:
  HttpExchange() = default;
  HttpExchange(const HttpExchange&) = delete;
  HttpExchange& operator=(const HttpExchange&) = delete;
  virtual ~HttpExchange() = default;

  [[nodiscard]] virtual const HttpRequest& Request() const = 0;
  /// Hands the answer over; the next Run sends it. The exchange must not be used afterwards.
  virtual void Answer(HttpAnswer answer) = 0;
};

/// What a server serves. Nothing here may run the event loop or the server.
class HttpService {
 public:
  HttpService() = default;
  HttpService(const HttpService&) = delete;
  HttpService& operator=(const HttpService&) = delete;
  virtual ~HttpService() = default;

  /// The answer to what can be decided by the header fields alone, refusals above all, before the body is
  /// read; nothing when the request is to be read whole.
  [[nodiscard]] virtual std::optional<HttpAnswer> Admit(const HttpRequest& head) = 0;
  /// A whole request.
  virtual void Receive(HttpExchange& exchange) = 0;
};

/// The key and certificate of https, as PEM.
struct HttpIdentity {
  std::string key;
  std::string certificate;
};

struct HttpLimits {
  unsigned connections = 256;
  unsigned connectionsOfAddress = 128;
  std::chrono::milliseconds request{10'000};  ///< from the first line to the end of the body
  std::chrono::milliseconds answer{60'000};   ///< until it has been read
  std::chrono::milliseconds idle{60'000};     ///< between two requests
};

inline constexpr std::size_t kMaxHttpBody = 256UL * 1024;
inline constexpr std::size_t kMaxHttpHead = 8UL * 1024;

/// A server of HTTP/1.1 in the event loop of the thread that made it, by libmicrohttpd without threads. It
/// waits for its sockets, but reads and writes in Run alone, which its owner calls. Connections that exceed
/// a limit of time are closed.
class HttpServer {
 public:
  /// `ready` is called from the event loop when Run has something to do. Throws InputError when the port
  /// cannot be had.
  HttpServer(HttpService& service, std::uint16_t port, HttpLimits limits, std::function<void()> ready,
             const std::optional<HttpIdentity>& identity = std::nullopt);
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;
  ~HttpServer();

  [[nodiscard]] std::uint16_t Port() const;
  /// Reads and writes what can be without waiting.
  void Run();
  /// Whether `ready` is called. Limits of time do not count while it is not.
  void SetWaiting(bool waits);

 private:
  class Daemon;
  std::unique_ptr<Daemon> daemon_;
};

}  // namespace koru
