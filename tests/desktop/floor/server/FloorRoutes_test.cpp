// What devices ask of the server, and what they are answered.

#include <QJsonDocument>

#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

class FloorRoutes : public ServerWorld {};

TEST_F(FloorRoutes, A_device_is_answered_its_count_its_store_and_whether_figures_are_taken) {
  const HttpReply reply = Post("/a/hello", R"({"device":"d1","name":"Sara"})", 2);
  EXPECT_EQ(reply.status, 200);
  EXPECT_EQ(reply.body, R"({"count":2,"store":"انبار مركزي","open":true})");
  ASSERT_EQ(session_->Devices().size(), 1U);
  EXPECT_EQ(session_->Devices()[0].name, "Sara");
  EXPECT_EQ(session_->Devices()[0].count, 2);
}

TEST_F(FloorRoutes, The_lines_have_key_code_name_unit_and_the_devices_own_figure) {
  ASSERT_TRUE(Type(2, FloorLines::ColumnOf(2), "7"));
  const QJsonObject lines = Get("/a/lines", 2).Json();
  EXPECT_EQ(lines["count"].toInt(), 2);
  EXPECT_TRUE(lines["open"].toBool());
  const QJsonArray all = lines["lines"].toArray();
  ASSERT_EQ(all.size(), 4);
  EXPECT_EQ(all[1].toArray()[0].toString(), "G2");
  EXPECT_EQ(all[1].toArray()[1].toInt(), 1);
  EXPECT_EQ(all[1].toArray()[5].toString(), "7");
  EXPECT_EQ(all[3].toArray()[0].toString(), "G1");
  EXPECT_EQ(all[3].toArray()[1].toInt(), 2);
}

TEST_F(FloorRoutes, A_figure_is_in_the_cell_when_the_device_has_its_answer) {
  const HttpReply reply = Post("/a/figures", Figure(1, "G2", "12.5"));
  EXPECT_EQ(StateOf(reply), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "12.5");
  EXPECT_EQ(journal_.appended, "") << "all is on the disk";
  EXPECT_NE(journal_.synced.find("12.5"), std::string::npos);
}

TEST_F(FloorRoutes, A_poll_is_answered_when_a_figure_comes) {
  const std::string revision = Revision();
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision, "d9"), Authorized(1)));
  EXPECT_EQ(poll.Receive().Json()["open"].toBool(), true) << "the first answer says whether it is open";
  poll.Send(RequestText("GET", Changes(revision, "d9"), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "12"))), "stored");
  const QJsonObject changes = poll.Receive().Json();
  EXPECT_EQ(changes["cells"].toArray(), QJsonArray({QJsonArray({"G2", 1, "12"})}));
}

}  // namespace
}  // namespace koru::test
