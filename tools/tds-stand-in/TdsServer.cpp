#include "tools/tds-stand-in/TdsServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <exception>
#include <stdexcept>
#include <utility>

#include "tools/tds-stand-in/TdsReply.h"

namespace koru::test {
namespace {

using Answer = TdsServer::Answer;

/// Listens on a free port that only this machine can reach.
int Listen(const Socket& listener) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* any = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener.Handle(), any, size) != 0 || listen(listener.Handle(), SOMAXCONN) != 0 ||
      getsockname(listener.Handle(), any, &size) != 0) {
    throw std::runtime_error("no place to listen");
  }
  return ntohs(address.sin_port);
}

/// The reply to success.
std::string Success(std::uint8_t type, const Answer& answer, MoreResults more) {
  switch (type) {
    case TdsMessage::Greeting:
      return GreetingReply();
    case TdsMessage::SignIn:
      return SignedInReply();
    case TdsMessage::Call:
      return ReturnedReply(answer.number);
    case TdsMessage::Cancel:
      return CancelledReply();
    default:
      return DoneReply(answer.written, more);
  }
}

/// The reply for an answer to a message of that type; no value for Silence and Close.
std::string Said(std::uint8_t type, const Answer& answer, MoreResults more) {
  switch (answer.kind) {
    case Answer::Kind::Done:
      return Success(type, answer, more);
    case Answer::Kind::Rows:
      return RowsReply(answer.rows, more);
    case Answer::Kind::Refusal:
      return RefusedReply(answer.number, answer.text, more);
    case Answer::Kind::Silence:
    case Answer::Kind::Close:
      break;
  }
  return {};
}

std::string Said(std::uint8_t type, const std::vector<Answer>& answers) {
  std::string said;
  for (const Answer& answer : answers) {
    said += Said(type, answer, &answer == &answers.back() ? MoreResults::No : MoreResults::Yes);
  }
  return said;
}

}  // namespace

TdsServer::TdsServer(Handlers handlers)
    : handlers_(std::move(handlers)), listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  port_ = Listen(listener_);
  thread_ = std::thread([this] { Serve(); });
}

TdsServer::~TdsServer() {
  listener_.HangUp();
  thread_.join();
  for (Client& client : clients_) {
    client.socket.HangUp();
    client.thread.join();
  }
}

std::string TdsServer::ConnectionText() const {
  return "Provider=SQLOLEDB.1;Driver=FreeTDS;Data Source=127.0.0.1," + std::to_string(port_) +
         ";Initial Catalog=suite;User ID=clerk;Password=\"s3cret}pass\"";
}

void TdsServer::Serve() {
  for (int number = 1;; ++number) {
    const int handle = accept4(listener_.Handle(), nullptr, nullptr, SOCK_CLOEXEC);
    if (handle < 0) return;
    // The last packet of a reply is sent without waiting for the acknowledgement of the others.
    const int yes = 1;
    setsockopt(handle, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
    RemoveClosedConnections();
    Client& client = clients_.emplace_back(handle, number);
    client.thread = std::thread([this, &client] {
      Talk(client);
      if (handlers_.leaves) handlers_.leaves(client.number);
      client.socket.HangUp();
      client.isGone = true;
    });
  }
}

void TdsServer::RemoveClosedConnections() {
  clients_.remove_if([](Client& client) {
    if (!client.isGone) return false;
    client.thread.join();
    return true;
  });
}

void TdsServer::Talk(const Client& client) const {
  bool hangs = false;
  for (auto message = Receive(client.socket); message; message = Receive(client.socket)) {
    std::vector<Answer> answers;
    try {
      answers = AnswersTo(client.number, *message, hangs);
    } catch (const std::exception& failure) {
      answers = {{Answer::Kind::Refusal, kOwnMessage, failure.what()}};
    }
    if (answers.front().kind == Answer::Kind::Close) return;
    hangs = answers.front().kind == Answer::Kind::Silence;
    if (!hangs) SendReply(client.socket, Said(message->type, answers));
  }
}

std::vector<Answer> TdsServer::AnswersTo(int client, const TdsMessage& message, bool hangs) const {
  constexpr Answer::Kind kSilence = Answer::Kind::Silence;
  constexpr Answer::Kind kDone = Answer::Kind::Done;
  switch (message.type) {
    case TdsMessage::Greeting:
      return {{handlers_.greets() ? kDone : kSilence}};
    case TdsMessage::SignIn:
      return {handlers_.signIn(client, message.body)};
    case TdsMessage::Batch:
      return handlers_.batch(client, ReadBatch(message.body));
    case TdsMessage::Call:
      return {handlers_.call(client, ReadCall(message.body))};
    case TdsMessage::Cancel:
      return {{hangs ? kSilence : kDone}};
    default:
      return {{Answer::Kind::Close}};
  }
}

}  // namespace koru::test
