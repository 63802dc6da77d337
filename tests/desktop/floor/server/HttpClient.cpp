#include "tests/desktop/floor/server/HttpClient.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QJsonDocument>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cctype>
#include <sstream>

namespace koru::test {
namespace {

constexpr int kHangs = 20'000;  ///< milliseconds, after which a test has hung

std::string Unpacked(const std::string& packed) {
  z_stream stream{};
  EXPECT_EQ(inflateInit2(&stream, 15 + 16), Z_OK);
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
  stream.avail_in = static_cast<uInt>(packed.size());
  std::string text;
  std::array<char, 65536> piece{};
  int state = Z_OK;
  while (state == Z_OK) {
    stream.next_out = reinterpret_cast<Bytef*>(piece.data());
    stream.avail_out = static_cast<uInt>(piece.size());
    state = inflate(&stream, Z_NO_FLUSH);
    text.append(piece.data(), piece.size() - stream.avail_out);
  }
  EXPECT_EQ(state, Z_STREAM_END);
  inflateEnd(&stream);
  return text;
}

std::string SmallLetters(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

}  // namespace

bool RunUntil(const std::function<bool()>& holds) {
  QElapsedTimer since;
  since.start();
  QTimer wake;  // the loop comes back although nothing happens
  wake.start(5);
  while (!holds()) {
    if (since.elapsed() > kHangs) {
      ADD_FAILURE() << "what was waited for has not come";
      return false;
    }
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  return true;
}

std::string HttpReply::Field(const std::string& name) const {
  const auto found = fields.find(name);
  return found == fields.end() ? std::string() : found->second;
}

QJsonObject HttpReply::Json() const {
  return QJsonDocument::fromJson(QByteArray::fromStdString(body)).object();
}

HttpClient::HttpClient(std::uint16_t port) : socket_(std::make_unique<QTcpSocket>()) {
  socket_->connectToHost(QHostAddress(QHostAddress::LocalHost), port);
  RunUntil([this] { return socket_->state() != QAbstractSocket::ConnectingState; });
}

void HttpClient::Send(const std::string& bytes) {
  socket_->write(bytes.data(), static_cast<qint64>(bytes.size()));
  socket_->flush();
}

bool HttpClient::ReadUntil(const std::function<bool()>& holds) {
  return RunUntil([&] {
    read_ += socket_->readAll().toStdString();
    return holds() || !IsOpen();
  });
}

HttpReply HttpClient::Receive(bool hasBody) {
  HttpReply reply;
  std::size_t head = 0;
  ReadUntil([&] { return (head = read_.find("\r\n\r\n")) != std::string::npos; });
  if (head == std::string::npos) return reply;
  head += 4;
  std::istringstream lines(read_.substr(0, head));
  std::string line;
  std::getline(lines, line);
  reply.status = std::stoi(line.substr(line.find(' ')));
  while (std::getline(lines, line) && line != "\r") {
    const auto colon = line.find(": ");
    reply.fields[SmallLetters(line.substr(0, colon))] = line.substr(colon + 2, line.size() - colon - 3);
  }
  const std::size_t size = hasBody ? std::stoul("0" + reply.Field("content-length")) : 0;
  ReadUntil([&] { return read_.size() >= head + size; });
  reply.wire = read_.substr(0, head + size);
  reply.body = read_.substr(head, size);
  read_.erase(0, head + size);
  if (reply.Field("content-encoding") == "gzip") reply.body = Unpacked(reply.body);
  return reply;
}

bool HttpClient::HasAnswer() {
  for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  read_ += socket_->readAll().toStdString();
  return !read_.empty();
}

bool HttpClient::WaitForEnd() {
  return ReadUntil([] { return false; }) && !IsOpen();
}

void HttpClient::StopReading() { socket_->setReadBufferSize(1); }

std::string RequestText(const std::string& method, const std::string& target, const std::string& fields,
                        const std::string& body) {
  std::string text = method + " " + target + " HTTP/1.1\r\nHost: localhost\r\n" + fields;
  if (method == "POST") text += "Content-Length: " + std::to_string(body.size()) + "\r\n";
  return text + "\r\n" + body;
}

}  // namespace koru::test
