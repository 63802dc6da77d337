#include "tests/desktop/floor/server/BlockingClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>
#include <utility>

namespace koru::test {

BlockingClient::BlockingClient(std::uint16_t port, std::string code)
    : socket_(socket(AF_INET, SOCK_STREAM, 0)), code_(std::move(code)) {
  sockaddr_in server{};
  server.sin_family = AF_INET;
  server.sin_port = htons(port);
  server.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const int atOnce = 1;
  setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
  if (connect(socket_, reinterpret_cast<sockaddr*>(&server), sizeof server) != 0) {
    throw std::runtime_error("no connection");
  }
}

BlockingClient::~BlockingClient() { close(socket_); }

void BlockingClient::HangUp() { shutdown(socket_, SHUT_RDWR); }

std::string BlockingClient::Get(const std::string& target) {
  return Exchange("GET " + target + " HTTP/1.1\r\nHost: localhost\r\nAccept-Encoding: gzip\r\n" +
                  "Authorization: Bearer " + code_ + "\r\n\r\n");
}

std::string BlockingClient::Post(const std::string& target, const std::string& body) {
  return Exchange("POST " + target + " HTTP/1.1\r\nHost: localhost\r\nAuthorization: Bearer " + code_ +
                  "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body);
}

std::ptrdiff_t BlockingClient::Send(const char* data, std::size_t size) {
  return send(socket_, data, size, MSG_NOSIGNAL);
}

std::ptrdiff_t BlockingClient::Receive(char* data, std::size_t size) { return recv(socket_, data, size, 0); }

std::string BlockingClient::Exchange(const std::string& request) {
  for (std::size_t sent = 0; sent < request.size();) {
    const std::ptrdiff_t size = Send(request.data() + sent, request.size() - sent);
    if (size <= 0) throw std::runtime_error("not sent");
    sent += static_cast<std::size_t>(size);
  }
  std::size_t head = std::string::npos;
  std::size_t whole = 0;
  while (head == std::string::npos || read_.size() < whole) {
    std::array<char, 65536> piece{};
    const std::ptrdiff_t size = Receive(piece.data(), piece.size());
    if (size <= 0) throw std::runtime_error("no answer");
    read_.append(piece.data(), static_cast<std::size_t>(size));
    if (head != std::string::npos || (head = read_.find("\r\n\r\n")) == std::string::npos) continue;
    head += 4;
    constexpr std::string_view kLength = "Content-Length: ";
    whole = head + std::stoul(read_.substr(read_.find(kLength) + kLength.size()));
  }
  if (!read_.starts_with("HTTP/1.1 200")) throw std::runtime_error(read_.substr(0, read_.find('\r')));
  const std::string body = read_.substr(head, whole - head);
  read_.erase(0, whole);
  return body;
}

}  // namespace koru::test
