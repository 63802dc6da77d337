#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QTcpSocket>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace koru::test {

/// Runs the event loop until that holds. Fails the test, and returns false, when it does not come to that.
bool RunUntil(const std::function<bool()>& holds);

/// What a server has answered.
struct HttpReply {
  int status = 0;                             ///< 0: it has closed the connection without an answer
  std::map<std::string, std::string> fields;  ///< of the header, their names in small letters
  std::string body;                           ///< unpacked
  std::string wire;                           ///< all of it, as it came

  [[nodiscard]] std::string Field(const std::string& name) const;
  [[nodiscard]] QJsonObject Json() const;
};

/// A device's connection to a server of this program, whose event loop both share.
class HttpClient {
 public:
  explicit HttpClient(std::uint16_t port);
  /// With a socket that is connected already.
  explicit HttpClient(std::unique_ptr<QTcpSocket> socket) : socket_(std::move(socket)) {}

  void Send(const std::string& bytes);
  /// The next answer. `hasBody` is false for an answer to HEAD.
  HttpReply Receive(bool hasBody = true);
  /// Whether an answer has begun to come, after all that the event loop has to do now.
  [[nodiscard]] bool HasAnswer();
  /// Waits until the server has closed the connection.
  bool WaitForEnd();
  [[nodiscard]] bool IsOpen() const { return socket_->state() == QAbstractSocket::ConnectedState; }
  /// What has come and is no answer.
  [[nodiscard]] const std::string& Rest() const { return read_; }
  void Close() { socket_->abort(); }
  /// Takes nothing from the network any more.
  void StopReading();

 private:
  bool ReadUntil(const std::function<bool()>& holds);

  std::unique_ptr<QTcpSocket> socket_;
  std::string read_;
};

/// The text of a request, with Host and Content-Length where there is a body.
std::string RequestText(const std::string& method, const std::string& target, const std::string& fields,
                        const std::string& body = "");

}  // namespace koru::test
