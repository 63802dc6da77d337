#include "tests/adapters/odbc/ScriptedServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

#include "adapters/odbc/WideText.h"

namespace koru::test {
namespace {

enum : std::uint8_t { kBatch = 1, kCall = 3, kReply = 4, kCancel = 6, kSignIn = 16, kGreeting = 18 };

/// Numbers of the protocol, lowest byte first.
std::string Little(std::uint64_t number, int bytes) {
  std::string text;
  for (; bytes > 0; --bytes, number >>= 8U) text += static_cast<char>(number & 0xFFU);
  return text;
}

std::string Wide(const std::string& utf8) {
  std::string text;
  for (const char16_t unit : ToUtf16(utf8)) text += Little(unit, 2);
  return text;
}

std::string Narrow(const std::string& bytes) {
  std::u16string units;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    units += static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) |
                                   static_cast<unsigned char>(bytes[at + 1]) << 8U);
  }
  return ToUtf8(units);
}

std::string Done(char token = '\xFD', int status = 0) {
  return token + Little(static_cast<std::uint64_t>(status), 2) + Little(0, 10);
}

std::string SignedIn() {
  const std::string name = Wide("Scripted");
  const std::string body = std::string("\x01\x74\0\0\x04\x08", 6) + name + std::string("\x0F\0\0\0", 4);
  return '\xAD' + Little(body.size(), 2) + body + Done();
}

std::string Refusal(const ScriptedServer::Answer& answer) {
  const std::string body = Little(static_cast<std::uint32_t>(answer.number), 4) + std::string("\x01\x10", 2) +
                           Little(Wide(answer.text).size() / 2, 2) + Wide(answer.text) +
                           std::string(2, '\0') + Little(1, 4);
  return '\xAA' + Little(body.size(), 2) + body + Done('\xFD', 2);
}

/// One column of that type, one row.
std::string OneField(char type, const ScriptedServer::Answer& answer, const std::string& value) {
  const std::string name = Wide(answer.text.empty() ? "N" : answer.text);
  const std::string column = Little(0, 4) + Little(0, 2) + type + static_cast<char>(name.size() / 2) + name;
  return '\x81' + Little(1, 2) + column + '\xD1' + value + Done();
}

std::string Number(const ScriptedServer::Answer& answer) {
  return OneField('\x38', answer, Little(static_cast<std::uint32_t>(answer.number), 4));
}

/// A day with its time: that many days after 1900, at noon.
std::string Day(const ScriptedServer::Answer& answer) {
  return OneField(
      '\x3D', answer,
      Little(static_cast<std::uint32_t>(answer.number), 4) + Little(std::uint64_t{12} * 3600 * 300, 4));
}

/// The name of the called procedure.
std::string CalledName(const std::string& body) {
  const auto units = static_cast<unsigned char>(body.at(0)) | static_cast<unsigned char>(body.at(1)) << 8U;
  return Narrow(body.substr(2, 2 * static_cast<std::size_t>(units)));
}

std::string WithoutHeaders(const std::string& message) {
  const auto size = static_cast<std::size_t>(static_cast<unsigned char>(message.at(0)));
  return message.substr(size);
}

void Send(int client, const std::string& body) {
  const std::size_t size = body.size() + 8;
  std::string packet{static_cast<char>(kReply), '\x01', static_cast<char>(size >> 8U),
                     static_cast<char>(size & 0xFFU)};
  packet += std::string("\0\0\x01\0", 4) + body;
  static_cast<void>(send(client, packet.data(), packet.size(), MSG_NOSIGNAL));
}

}  // namespace

struct ScriptedServer::Packet {
  std::uint8_t type = 0;
  std::string body;
};

ScriptedServer::ScriptedServer(Script script)
    : script_(std::move(script)), listener_(socket(AF_INET, SOCK_STREAM, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* any = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener_, any, size) != 0 || listen(listener_, 5) != 0 ||
      getsockname(listener_, any, &size) != 0) {
    throw std::runtime_error("no place to listen");
  }
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

ScriptedServer::~ScriptedServer() {
  ending_ = true;
  thread_.join();
  close(listener_);
}

std::string ScriptedServer::ConnectionText() const {
  return "Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," + std::to_string(port_) +
         ";Initial Catalog=suite;User ID=clerk;Password=\"s3cret}pass\"";
}

std::vector<std::string> ScriptedServer::Statements() const {
  const std::lock_guard<std::mutex> lock(guard_);
  return statements_;
}

bool ScriptedServer::SignInHeld(const std::string& text) const {
  const std::lock_guard<std::mutex> lock(guard_);
  return lastSignIn_.find(Wide(text)) != std::string::npos;
}

void ScriptedServer::NoteSignIn(const std::string& message) {
  const std::lock_guard<std::mutex> lock(guard_);
  lastSignIn_ = message;
  ++signIns_;
}

void ScriptedServer::Serve() {
  while (!ending_) {
    pollfd waiting{listener_, POLLIN, 0};
    if (poll(&waiting, 1, 20) <= 0) continue;
    const int client = accept(listener_, nullptr, nullptr);
    if (client < 0) continue;
    Talk(client);
    close(client);
  }
}

bool ScriptedServer::ReadBytes(int client, void* into, std::size_t count) const {
  auto* at = static_cast<char*>(into);
  while (count > 0) {
    if (ending_) return false;
    pollfd waiting{client, POLLIN, 0};
    if (poll(&waiting, 1, 20) <= 0) continue;
    const ssize_t got = recv(client, at, count, 0);
    if (got <= 0) return false;
    at += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

bool ScriptedServer::ReadMessage(int client, Packet& message) const {
  message.body.clear();
  std::array<unsigned char, 8> header{};
  do {
    if (!ReadBytes(client, header.data(), header.size())) return false;
    const auto size = static_cast<std::size_t>(header[2] << 8U | header[3]);
    std::string part(size - header.size(), '\0');
    if (!ReadBytes(client, part.data(), part.size())) return false;
    message.type = header[0];
    message.body += part;
  } while ((header[1] & 1U) == 0);
  return true;
}

ScriptedServer::Answer ScriptedServer::Take(const std::string& statement) {
  {
    const std::lock_guard<std::mutex> lock(guard_);
    statements_.push_back(statement);
  }
  return script_.statement(statement);
}

bool ScriptedServer::Reply(int client, const Answer& answer, const std::string& success) const {
  switch (answer.kind) {
    case Answer::Kind::Done:
      Send(client, success);
      return true;
    case Answer::Kind::Number:
      Send(client, Number(answer));
      return true;
    case Answer::Kind::Day:
      Send(client, Day(answer));
      return true;
    case Answer::Kind::Refusal:
      Send(client, Refusal(answer));
      return true;
    case Answer::Kind::Silence:
      return true;
    case Answer::Kind::Close:
      break;
  }
  return false;
}

void ScriptedServer::Talk(int client) {
  Packet message;
  bool goesOn = true;
  while (goesOn && ReadMessage(client, message)) {
    switch (message.type) {
      case kGreeting:
        // Its version, and that it does not encrypt.
        if (script_.greets)
          Send(client, std::string("\0\0\x0B\0\x06\x01\0\x11\0\x01\xFF\x0F\0\0\0\0\0\x02", 18));
        break;
      case kSignIn:
        NoteSignIn(message.body);
        goesOn = Reply(client, script_.signIn(), SignedIn());
        break;
      case kBatch:
        goesOn = Reply(client, Take(Narrow(WithoutHeaders(message.body))), Done());
        break;
      case kCall: {
        const Answer answer = Take("CALL " + CalledName(WithoutHeaders(message.body)));
        goesOn = Reply(client, answer,
                       '\x79' + Little(static_cast<std::uint32_t>(answer.number), 4) + Done('\xFE'));
        break;
      }
      default:  // a cancelled statement stays unanswered, as by a server that hangs
        break;
    }
  }
}

}  // namespace koru::test
