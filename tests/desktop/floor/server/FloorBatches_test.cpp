// Requests of more figures than a turn takes, while the desk ends or changes what they are for: whatever is
// in the counting is answered so.

#include <algorithm>
#include <array>

#include "floor/JournalText.h"
#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

constexpr int kFigures = 50;

class FloorBatches : public ServerWorld {
 protected:
  FloorBatches() {
    settings_.limits.round = std::chrono::milliseconds(0);  // a figure in each turn
    Serve();
    request_ = RequestText("POST", "/a/figures", Authorized(1), Batch(1));
  }

  /// The figures from that number on; each adds 1 to the sugar.
  static std::string Batch(int first) {
    std::string items;
    for (int i = first; i <= kFigures; ++i) {
      items += std::string(i > first ? "," : "") + R"({"seq":)" + std::to_string(i) +
               R"(,"barcode":"G2","ordinal":1,"op":"add","text":"1"})";
    }
    return R"({"device":"d1","items":[)" + items + "]}";
  }
  /// Sends all figures, and returns when some of them are in the counting.
  void SendUntilHalf(HttpClient& device) {
    device.Send(request_);
    RunUntil([this] { return arrivals_.size() >= kFigures / 2; });
    ASSERT_LT(arrivals_.size(), kFigures);
  }
  /// Each figure that has reached the counting is answered so, and the others are to be sent again.
  void ExpectAnswered(const HttpReply& reply) {
    ASSERT_EQ(reply.status, 200) << reply.body;
    const QJsonArray answers = reply.Json()["items"].toArray();
    ASSERT_EQ(answers.size(), kFigures);
    const auto entered = static_cast<int>(arrivals_.size());
    for (int i = 0; i < kFigures; ++i) {
      const QJsonObject answer = answers.at(i).toObject();
      EXPECT_EQ(answer["seq"].toInt(), i + 1);
      EXPECT_EQ(answer["state"].toString(), i < entered ? "stored" : "paused") << i;
      if (i < entered) {
        EXPECT_EQ(answer["text"].toString(), QString::number(i + 1));
      }
    }
    EXPECT_LT(reply.Json()["rev"].toDouble(), 9e15) << "a number that the page can hold";
  }
  [[nodiscard]] std::size_t JournalledIn(const std::string& text) const {
    const auto figures = ReadJournal(text).figures;
    return static_cast<std::size_t>(std::count_if(
        figures.begin(), figures.end(), [](const JournalFigure& figure) { return !figure.IsOfDesk(); }));
  }

  std::string request_;
};

TEST_F(FloorBatches, The_desk_stops_in_the_middle) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  session_->Stop();
  const HttpReply reply = device.Receive();
  ExpectAnswered(reply);
  EXPECT_FALSE(reply.Json()["open"].toBool());
  EXPECT_EQ(JournalledIn(journal_.synced), arrivals_.size());
  const std::size_t before = arrivals_.size();
  device.Send(request_);
  EXPECT_EQ(device.Receive().status, 401) << "none of this request was decided";
  EXPECT_EQ(arrivals_.size(), before);
}

TEST_F(FloorBatches, The_desk_renews_the_code_in_the_middle) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  session_->RenewCode(1);
  const HttpReply reply = device.Receive();
  ExpectAnswered(reply);
  EXPECT_TRUE(reply.Json()["open"].toBool());
  device.Send(request_);
  EXPECT_EQ(device.Receive().status, 401);
  EXPECT_EQ(Post("/a/figures", Batch(static_cast<int>(arrivals_.size()) + 1)).status, 200) << "the new code";
  EXPECT_EQ(Count({"G2", 1}, 1), "50") << "each figure once";
}

TEST_F(FloorBatches, The_desk_cancels_in_the_middle) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  ASSERT_EQ(session_->Ended(), FloorSession::End::Cancelled);
  ExpectAnswered(device.Receive());
  EXPECT_EQ(journal_.Read(), "");
  ASSERT_EQ(journal_.aside.size(), 1U);
  EXPECT_EQ(JournalledIn(journal_.aside[0]), arrivals_.size());
}

TEST_F(FloorBatches, The_desk_registers_in_the_middle) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  for (int row = 1; row <= 4; ++row) Type(row, LineColumn::AcceptedCounting, "12");
  Desk().Timer1.Fire();
  ASSERT_TRUE(Desk().cmdIsFinalized.UserClick());
  ASSERT_EQ(session_->Ended(), FloorSession::End::Registered);
  ExpectAnswered(device.Receive());
  EXPECT_EQ(database.Scalar(
                "select FirstCounting from tblInventoryCountingDetail where CountingID=20 and RowNumber=2"),
            std::to_string(arrivals_.size()));
  EXPECT_EQ(journal_.Read(), "") << "nothing has made it anew";
}

TEST_F(FloorBatches, The_desk_saves_in_the_middle) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  Save();
  ExpectAnswered(device.Receive());
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  device.Send(request_);
  EXPECT_EQ(device.Receive().status, 200);
  EXPECT_EQ(Count({"G2", 1}, 1), "50") << "each figure once";
}

TEST_F(FloorBatches, The_server_ends_in_the_middle_while_the_session_continues) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  server_.reset();
  ExpectAnswered(device.Receive());
  EXPECT_EQ(JournalledIn(journal_.synced), arrivals_.size());
}

TEST_F(FloorBatches, The_desk_stops_in_the_middle_and_the_server_ends_at_once) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  session_->Stop();
  server_.reset();
  ExpectAnswered(device.Receive());
  EXPECT_EQ(JournalledIn(journal_.synced), arrivals_.size());
}

TEST_F(FloorBatches, The_form_ends_in_the_middle_and_the_server_with_it) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  Desk().Unload();
  server_.reset();
  ExpectAnswered(device.Receive());
  EXPECT_EQ(JournalledIn(journal_.synced), arrivals_.size()) << "the next Edit offers them";
}

TEST_F(FloorBatches, The_desk_cancels_in_the_middle_and_the_server_ends_at_once) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  server_.reset();
  ExpectAnswered(device.Receive());
  EXPECT_EQ(journal_.Read(), "") << "nothing has made it anew";
}

TEST_F(FloorBatches, What_the_disk_does_not_take_is_not_acknowledged_at_the_end_either) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  journal_.isFull = true;
  const std::size_t before = arrivals_.size();
  RunUntil([&] { return arrivals_.size() > before; });
  server_.reset();
  EXPECT_EQ(device.Receive().status, 503);
}

TEST_F(FloorBatches, A_request_that_waits_for_its_first_figure_is_not_answered_by_the_end_of_the_server) {
  HttpClient device(server_->Port());
  SendUntilHalf(device);
  HttpClient other(server_->Port());
  other.Send(RequestText("POST", "/a/figures", Authorized(2), Figure(1, "G3", "3")));
  RunUntil([] { return true; });
  server_.reset();
  ExpectAnswered(device.Receive());
  EXPECT_TRUE(other.WaitForEnd());
  EXPECT_EQ(other.Rest(), "");
  EXPECT_EQ(Count({"G3", 1}, 2), "");
}

}  // namespace
}  // namespace koru::test
