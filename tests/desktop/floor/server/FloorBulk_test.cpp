// Many figures change at once, or one after the other without end, and many devices wait for them.

#include <QTimer>
#include <algorithm>
#include <vector>

#include "platform/ports/Screen.h"
#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

constexpr int kMany = 501;  ///< more changes than a device is sent one by one

class FloorBulk : public ServerWorld {
 protected:
  /// The desk changes the sugar's first count many times, as an import changes many lines.
  void ChangeMany() {
    for (int i = 0; i < kMany; ++i) {
      last_ = std::to_string(++changes_);
      ASSERT_TRUE(Type(2, FloorLines::ColumnOf(1), last_));
    }
  }
  /// A request for changes that is held.
  std::unique_ptr<HttpClient> Poll(int count, const std::string& device) {
    const std::string revision = Revision(count);
    Get(Changes(revision, device), count);
    auto poll = std::make_unique<HttpClient>(server_->Port());
    poll->Send(RequestText("GET", Changes(revision, device), Authorized(count)));
    return poll;
  }

  int changes_ = 0;
  std::string last_;
};

TEST_F(FloorBulk, An_import_or_its_undo_at_the_desk_is_not_sent_figure_by_figure) {
  const auto poll = Poll(1, "d1");
  const auto other = Poll(2, "d2");
  EXPECT_FALSE(poll->HasAnswer());
  ChangeMany();
  const QJsonObject changes = poll->Receive().Json();
  EXPECT_TRUE(changes["lines"].toBool());
  EXPECT_TRUE(changes["cells"].toArray().isEmpty());
  EXPECT_FALSE(other->HasAnswer()) << "nothing of its count has changed";
  ASSERT_TRUE(Type(3, FloorLines::ColumnOf(2), "4"));
  EXPECT_EQ(other->Receive().Json()["cells"].toArray(), Cells({"G3", 1, "4"}));
}

TEST_F(FloorBulk, Many_waiting_devices_are_answered_in_several_turns_between_which_the_desk_has_its_own) {
  constexpr std::size_t kDevices = 20;
  settings_.limits.round = std::chrono::milliseconds(0);  // one answer in each turn
  settings_.limits.connectionsOfAddress = 2 * kDevices;
  Serve();
  const std::string revision = Revision();
  std::vector<QTcpSocket*> sockets;
  std::vector<std::unique_ptr<HttpClient>> polls;
  for (std::size_t i = 0; i < kDevices; ++i) {
    const std::string device = "d" + std::to_string(i);
    Get(Changes(revision, device));
    auto socket = std::make_unique<QTcpSocket>();
    sockets.push_back(socket.get());
    socket->connectToHost("127.0.0.1", server_->Port());
    RunUntil([&] { return socket->state() == QAbstractSocket::ConnectedState; });
    polls.push_back(std::make_unique<HttpClient>(std::move(socket)));
    polls.back()->Send(RequestText("GET", Changes(revision, device), Authorized(1)));
    EXPECT_FALSE(polls.back()->HasAnswer());
  }
  const auto answered = [&] {
    return std::count_if(sockets.begin(), sockets.end(),
                         [](const QTcpSocket* socket) { return socket->bytesAvailable() > 0; });
  };
  ASSERT_TRUE(Type(2, FloorLines::ColumnOf(1), "7"));
  RunUntil([&] { return answered() > 0; });
  EXPECT_LT(answered(), kDevices / 2);
  for (const auto& poll : polls) {
    EXPECT_EQ(poll->Receive().Json()["cells"].toArray(), Cells({"G2", 1, "7"}));
  }
}

TEST_F(FloorBulk, A_change_while_devices_are_being_answered_reaches_all_of_them) {
  settings_.limits.round = std::chrono::milliseconds(0);
  settings_.limits.gather = std::chrono::milliseconds(0);
  Serve();
  std::vector<std::unique_ptr<HttpClient>> polls;
  polls.reserve(6);
  for (int i = 0; i < 6; ++i) polls.push_back(Poll(1 + i % 2, "d" + std::to_string(i)));
  for (const auto& poll : polls) EXPECT_FALSE(poll->HasAnswer());
  ASSERT_TRUE(Type(2, FloorLines::ColumnOf(1), "7"));
  EXPECT_EQ(polls[0]->Receive().Json()["cells"].toArray(), Cells({"G2", 1, "7"}));
  ASSERT_TRUE(Type(2, FloorLines::ColumnOf(2), "8"));
  for (std::size_t i : {1U, 3U, 5U}) {
    EXPECT_EQ(polls[i]->Receive().Json()["cells"].toArray(), Cells({"G2", 1, "8"})) << i;
  }
  for (std::size_t i : {2U, 4U}) {
    EXPECT_EQ(polls[i]->Receive().Json()["cells"].toArray(), Cells({"G2", 1, "7"})) << i;
  }
}

/// Figures that come without end, faster than lines can be sent.
class FloorFlood : public FloorBulk {
 protected:
  FloorFlood() {
    settings_.limits.round = std::chrono::milliseconds(0);  // lines take several turns
    Serve();
    QObject::connect(&flood_, &QTimer::timeout, [this] { ChangeMany(); });
  }

  QTimer flood_;
};

TEST_F(FloorFlood, The_lines_are_made_once_for_all_devices_that_wait_for_them) {
  std::vector<std::unique_ptr<HttpClient>> devices;
  for (int i = 0; i < 4; ++i) {
    devices.push_back(std::make_unique<HttpClient>(server_->Port()));
    devices.back()->Send(RequestText("GET", "/", ""));
    EXPECT_EQ(devices.back()->Receive().status, 200);
  }
  flood_.start(0);
  {
    const Hourglass hourglass(screen);  // their requests are read together
    for (const auto& device : devices) {
      device->Send(RequestText("GET", "/a/lines", Authorized(1)));
      EXPECT_FALSE(device->HasAnswer());
    }
  }
  std::vector<qint64> revisions;
  revisions.reserve(devices.size());
  for (const auto& device : devices) revisions.push_back(device->Receive().Json()["rev"].toInteger());
  EXPECT_EQ(revisions, std::vector<qint64>(4, revisions.front()));
}

TEST_F(FloorFlood, A_device_has_the_last_figures_soon_after_the_end) {
  flood_.start(0);
  const std::string early = Revision();
  EXPECT_TRUE(Get(Changes(early)).Json()["lines"].toBool());
  const QJsonObject before = Get("/a/lines").Json();
  EXPECT_EQ(before["lines"].toArray().size(), 4) << "also while figures come";
  flood_.stop();
  EXPECT_TRUE(Get(Changes(std::to_string(before["rev"].toInteger()))).Json()["lines"].toBool());
  const QJsonObject after = Get("/a/lines").Json();
  EXPECT_EQ(after["lines"].toArray().at(1).toArray().at(5).toString().toStdString(), last_);
  const std::string revision = std::to_string(after["rev"].toInteger());
  const QJsonObject changes = Get(Changes(revision, "d9")).Json();
  EXPECT_FALSE(changes["lines"].toBool());
  EXPECT_TRUE(changes["cells"].toArray().isEmpty());
}

}  // namespace
}  // namespace koru::test
