// What is lost on the way, at the desk's disk, or while the desk is busy.

#include "platform/ports/Screen.h"
#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

class FloorLoss : public ServerWorld {
 protected:
  /// Sends a request and hears no answer, although the server has decided it.
  void AskAndLoseTheAnswer(const std::string& request) {
    HttpClient client(server_->Port());
    client.Send(request);
    RunUntil([&] { return client.HasAnswer(); });
    client.Close();
  }
};

TEST_F(FloorLoss, A_figure_that_is_added_and_sent_again_since_its_answer_was_lost_is_applied_once) {
  Post("/a/figures", Figure(1, "G2", "5"));
  AskAndLoseTheAnswer(RequestText("POST", "/a/figures", Authorized(1), Figure(2, "G2", "7", "add")));
  EXPECT_EQ(Count({"G2", 1}, 1), "12");
  const HttpReply again = Post("/a/figures", Figure(2, "G2", "7", "add"));
  EXPECT_EQ(StateOf(again), "stored");
  EXPECT_EQ(again.Json()["items"].toArray().at(0).toObject()["text"].toString(), "12");
  EXPECT_EQ(Count({"G2", 1}, 1), "12");
}

TEST_F(FloorLoss, What_is_not_on_the_disk_is_not_acknowledged_until_it_is) {
  journal_.isFull = true;
  EXPECT_EQ(Post("/a/figures", Figure(1, "G2", "7", "add")).status, 503);
  EXPECT_EQ(Post("/a/hello", R"({"device":"d1","name":"n"})").status, 503);
  EXPECT_EQ(Post("/a/unknown", R"({"device":"d1","barcode":"G9"})").status, 503);
  EXPECT_EQ(failures_.size(), 1U) << "the desk is informed once";
  EXPECT_EQ(Get("/a/lines").status, 200);
  journal_.isFull = false;
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "7", "add"))), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "7");
  EXPECT_EQ(journal_.appended, "");
}

TEST_F(FloorLoss, Many_requests_of_a_turn_are_put_on_the_disk_together) {
  std::vector<std::unique_ptr<HttpClient>> clients;
  for (int i = 0; i < 20; ++i) clients.push_back(std::make_unique<HttpClient>(server_->Port()));
  const int syncs = journal_.syncs;
  for (int i = 0; i < 20; ++i) {
    clients[static_cast<std::size_t>(i)]->Send(
        RequestText("POST", "/a/figures", Authorized(1), Figure(i + 1, "G2", "1", "add")));
  }
  for (const auto& client : clients) EXPECT_EQ(StateOf(client->Receive()), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "20");
  EXPECT_LT(journal_.syncs - syncs, 20);
}

TEST_F(FloorLoss, A_device_that_is_gone_before_its_answer_harms_nothing) {
  const std::string revision = Revision();
  Get(Changes(revision));
  {
    HttpClient poll(server_->Port());
    poll.Send(RequestText("GET", Changes(revision), Authorized(1)));
    EXPECT_FALSE(poll.HasAnswer());
  }
  HttpClient half(server_->Port());
  half.Send(RequestText("POST", "/a/figures", Authorized(1), Figure(1, "G2", "1", "add")).substr(0, 150));
  EXPECT_FALSE(half.HasAnswer());
  half.Close();
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(2, "G3", "3"))), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "") << "half a request is none";
}

TEST_F(FloorLoss, The_server_ends_while_polls_are_held) {
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  server_.reset();
  EXPECT_TRUE(poll.WaitForEnd());
}

TEST_F(FloorLoss, A_server_that_was_ended_can_begin_again_on_its_port) {
  Get("/a/lines");
  settings_.port = server_->Port();
  Serve();
  EXPECT_EQ(server_->Port(), settings_.port);
  EXPECT_EQ(Get("/a/lines").status, 200);
}

TEST_F(FloorLoss, A_port_that_another_program_has_is_reported) {
  FloorServerSettings taken = settings_;
  taken.port = server_->Port();
  EXPECT_THROW(FloorServer(*session_, taken), InputError);
}

TEST_F(FloorLoss, While_a_command_works_nothing_is_read_and_afterwards_all_of_it_is) {
  settings_.limits.command = std::chrono::milliseconds(1);
  settings_.limits.request = std::chrono::milliseconds(40);
  Serve();
  HttpClient client(server_->Port());
  {
    const Hourglass hourglass(screen);
    client.Send(RequestText("POST", "/a/figures", Authorized(1), Figure(1, "G2", "5")));
    EXPECT_FALSE(client.HasAnswer());
    EXPECT_EQ(Count({"G2", 1}, 1), "");
    HttpClient other(server_->Port());
    other.Send(RequestText("GET", "/", ""));
    EXPECT_FALSE(other.HasAnswer()) << "not even the page";
  }
  EXPECT_EQ(StateOf(client.Receive()), "stored");
}

TEST_F(FloorLoss, An_event_loop_inside_an_entry_reads_nothing) {
  HttpClient second(server_->Port());
  bool answered = true;
  session_->Arrived.Always([&](const FloorArrival&) {
    if (!answered) return;
    second.Send(RequestText("POST", "/a/figures", Authorized(2), Figure(1, "G3", "9")));
    answered = second.HasAnswer();
  });
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "5"))), "stored");
  EXPECT_FALSE(answered);
  EXPECT_EQ(StateOf(second.Receive()), "stored");
}

TEST_F(FloorLoss, A_temporary_save_pauses_and_Edit_resumes_with_the_same_code) {
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  Save();
  const HttpReply paused = poll.Receive();
  EXPECT_EQ(paused.status, 200);
  EXPECT_FALSE(paused.Json()["open"].toBool());
  const HttpReply figure = Post("/a/figures", Figure(1, "G2", "5"));
  EXPECT_EQ(StateOf(figure), "paused");
  EXPECT_FALSE(figure.Json()["open"].toBool());
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  Desk().Timer1.Fire();
  EXPECT_TRUE(Get(Changes(std::to_string(paused.Json()["rev"].toInteger()))).Json()["open"].toBool());
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "5"))), "stored");
}

TEST_F(FloorLoss, After_the_end_every_call_and_held_poll_is_shut_out) {
  const std::string revision = Revision();
  Get(Changes(revision));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision), Authorized(1)));
  EXPECT_FALSE(poll.HasAnswer());
  session_->Stop();
  EXPECT_EQ(poll.Receive().status, 401);
  for (const char* call : {"/a/lines", "/a/changes?since=0&device=d1"}) EXPECT_EQ(Get(call).status, 401);
  for (const char* call : {"/a/hello", "/a/figures", "/a/unknown"}) EXPECT_EQ(Post(call, "{}").status, 401);
  const HttpReply reply = Post("/a/figures", Figure(1, "G2", "5"));
  EXPECT_FALSE(reply.Json()["error"].toString().isEmpty());
  EXPECT_EQ(Ask(RequestText("GET", "/", "")).status, 200) << "the page says so";
}

TEST_F(FloorLoss, A_request_of_more_figures_than_a_turn_holds_is_answered_whole) {
  settings_.limits.round = std::chrono::milliseconds(0);
  Serve();
  std::string items;
  for (int i = 1; i <= 50; ++i) {
    items += std::string(i > 1 ? "," : "") + R"({"seq":)" + std::to_string(i) +
             R"(,"barcode":"G2","ordinal":1,"op":"add","text":"1"})";
  }
  HttpClient large(server_->Port());
  large.Send(RequestText("POST", "/a/figures", Authorized(1), R"({"device":"d1","items":[)" + items + "]}"));
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G3", "3"), 2)), "stored");
  const QJsonArray answers = large.Receive().Json()["items"].toArray();
  ASSERT_EQ(answers.size(), 50);
  EXPECT_EQ(answers.last().toObject()["text"].toString(), "50");
  EXPECT_EQ(Count({"G2", 1}, 1), "50");
}

}  // namespace
}  // namespace koru::test
