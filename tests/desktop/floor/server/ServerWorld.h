#pragma once

#include <QJsonArray>
#include <memory>
#include <string>

#include "adapters/system/TemporaryFolder.h"
#include "desktop/floor/server/FloorServer.h"
#include "tests/desktop/floor/server/HttpClient.h"
#include "tests/floor/FloorWorld.h"

namespace koru::test {

/// The counting of FloorWorld is open to the floor by HTTP on a free port.
class ServerWorld : public FloorWorld {
 protected:
  ServerWorld() {
    settings_.port = 0;
    settings_.securePort = 0;
    settings_.folder = folder_.Path();
    settings_.addresses = {"192.0.2.7", "desk.example"};
    settings_.store = "انبار مركزي";
    settings_.counting = "00c0ffee00c0ffee";
    Serve();
  }

  /// Begins the server anew, with the settings as they are now.
  void Serve() {
    server_.reset();
    server_ = std::make_unique<FloorServer>(*session_, settings_);
  }
  /// The program begins anew, and serves.
  void StartAnew() {
    server_.reset();
    StartAndOpen();
    Serve();
  }
  [[nodiscard]] std::string Authorized(int count) const {
    return "Authorization: Bearer " + session_->Code(count) + "\r\n";
  }
  /// What a connection of its own is answered.
  HttpReply Ask(const std::string& request) {
    HttpClient client(server_->Port());
    client.Send(request);
    return client.Receive();
  }
  HttpReply Get(const std::string& target, int count = 1) {
    return Ask(RequestText("GET", target, Authorized(count)));
  }
  HttpReply Post(const std::string& target, const std::string& body, int count = 1) {
    return Ask(RequestText("POST", target, Authorized(count), body));
  }
  /// The request of one figure.
  static std::string Figure(int sequence, const std::string& barcode, const std::string& text,
                            const std::string& operation = "set", const std::string& base = "") {
    return R"({"device":"d1","items":[{"seq":)" + std::to_string(sequence) + R"(,"barcode":")" + barcode +
           R"(","ordinal":1,"op":")" + operation + R"(","text":")" + text + R"(","base":")" + base +
           R"("}]})";
  }
  /// The state of the only figure of an answer.
  static std::string StateOf(const HttpReply& reply) {
    return reply.Json()["items"].toArray().at(0).toObject()["state"].toString().toStdString();
  }
  /// The revision that the lines have.
  std::string Revision(int count = 1) {
    return std::to_string(Get("/a/lines", count).Json()["rev"].toInteger());
  }
  /// The cells of an answer with one change. Compilers differ in what QJsonArray({QJsonArray()}) is.
  static QJsonArray Cells(const QJsonArray& cell) {
    QJsonArray cells;
    cells.append(cell);
    return cells;
  }
  static std::string Changes(const std::string& since, const std::string& device = "d1") {
    return "/a/changes?since=" + since + "&device=" + device;
  }

  TemporaryFolder folder_;
  FloorServerSettings settings_;
  std::unique_ptr<FloorServer> server_;
};

}  // namespace koru::test
