#include "tools/tds-stand-in/TdsWire.h"

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "adapters/odbc/WideText.h"

namespace koru::test {
namespace {

constexpr std::size_t kHeader = 8;
constexpr std::size_t kMaxPacketBody = 4096 - kHeader;
constexpr unsigned char kLast = 1;

bool ReadBytes(const Socket& client, void* into, std::size_t count) {
  auto* at = static_cast<char*>(into);
  while (count > 0) {
    const ssize_t got = recv(client.Handle(), at, count, 0);
    if (got <= 0) return false;
    at += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

std::string Packet(std::string_view part, bool isLast, unsigned char number) {
  const std::size_t size = part.size() + kHeader;
  std::string packet{static_cast<char>(TdsMessage::Reply),
                     static_cast<char>(isLast ? kLast : 0),
                     static_cast<char>(size >> 8U),
                     static_cast<char>(size & 0xFFU),
                     '\0',
                     '\0',
                     static_cast<char>(number),
                     '\0'};
  return packet.append(part);
}

}  // namespace

std::string Little(std::uint64_t number, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, number >>= 8U) text += static_cast<char>(number & 0xFFU);
  return text;
}

std::uint64_t ReadLittle(std::string_view text, std::size_t bytes) {
  if (text.size() < bytes) throw std::out_of_range("a message ends too soon");
  std::uint64_t number = 0;
  for (std::size_t at = bytes; at > 0; --at) {
    number = number << 8U | static_cast<unsigned char>(text[at - 1]);
  }
  return number;
}

std::string Wide(std::string_view utf8) {
  std::string bytes;
  for (const char16_t unit : ToUtf16(utf8)) bytes += Little(unit, 2);
  return bytes;
}

std::string Narrow(std::string_view bytes) {
  std::u16string units;
  for (; bytes.size() >= 2; bytes.remove_prefix(2)) units += static_cast<char16_t>(ReadLittle(bytes, 2));
  return ToUtf8(units);
}

Socket::~Socket() {
  if (handle_ >= 0) close(handle_);
}

void Socket::HangUp() const { shutdown(handle_, SHUT_RDWR); }

std::optional<TdsMessage> Receive(const Socket& client) {
  TdsMessage message;
  std::array<unsigned char, kHeader> header{};
  do {
    if (!ReadBytes(client, header.data(), header.size())) return {};
    const auto size = static_cast<std::size_t>(header[2] << 8U | header[3]);
    if (size < header.size()) return {};
    std::string part(size - header.size(), '\0');
    if (!ReadBytes(client, part.data(), part.size())) return {};
    message.type = header[0];
    message.body += part;
  } while ((header[1] & kLast) == 0);
  return message;
}

void SendReply(const Socket& client, std::string_view body) {
  std::string packets;
  unsigned char number = 1;
  do {
    const std::string_view part = body.substr(0, kMaxPacketBody);
    body.remove_prefix(part.size());
    packets += Packet(part, body.empty(), number++);
  } while (!body.empty());
  std::string_view rest = packets;
  while (!rest.empty()) {
    const ssize_t sent = send(client.Handle(), rest.data(), rest.size(), MSG_NOSIGNAL);
    if (sent <= 0) return;
    rest.remove_prefix(static_cast<std::size_t>(sent));
  }
}

}  // namespace koru::test
