// The disk takes its time: devices wait for it, and the desk does not.

#include <QTimer>
#include <atomic>
#include <chrono>
#include <semaphore>
#include <thread>

#include "floor/JournalText.h"
#include "tests/desktop/floor/server/ServerWorld.h"

namespace koru::test {
namespace {

/// A journal on a disk that holds each sync until the test lets it pass or fail.
class SlowJournal : public MemoryJournal {
 public:
  void Begin(std::string_view text) override {
    Touch();
    MemoryJournal::Begin(text);
  }
  void Append(std::string_view lines) override {
    Touch();
    MemoryJournal::Append(lines);
  }
  void Sync() override {
    isSyncing_ = true;
    begun_.release();
    constexpr std::chrono::seconds kHangs{20};
    if (!passes_.try_acquire_for(kHangs)) ADD_FAILURE() << "the disk was waited for where it must not be";
    const bool fails = fails_.exchange(false);
    if (fails) {
      LosePower();  // a system may forget what it could not write
    } else {
      MemoryJournal::Sync();
    }
    isSyncing_ = false;
    if (fails) throw InputError("ديسك خراب است.");
  }
  std::string SetAside() override {
    Touch();
    return MemoryJournal::SetAside();
  }
  void Remove() override {
    Touch();
    MemoryJournal::Remove();
  }

  /// Runs the event loop until a sync has begun.
  void WaitForSync() {
    ASSERT_TRUE(RunUntil([this] { return begun_.try_acquire(); }));
  }
  void LetPass(int syncs = 1) { passes_.release(syncs); }
  void LetFail() {
    fails_ = true;
    LetPass();
  }
  [[nodiscard]] bool IsSyncing() const { return isSyncing_; }
  /// Whether anything was done to the journal while it was being synced.
  [[nodiscard]] bool WasDisturbed() const { return wasDisturbed_; }

 private:
  void Touch() {
    if (isSyncing_) wasDisturbed_ = true;
  }

  std::counting_semaphore<> begun_{0};
  std::counting_semaphore<> passes_{0};
  std::atomic<bool> fails_ = false;
  std::atomic<bool> isSyncing_ = false;
  std::atomic<bool> wasDisturbed_ = false;
};

class FloorDisk : public ServerWorld {
 protected:
  FloorDisk() {
    server_.reset();
    session_.reset();
    work_ = Desk().pgbStatus.StateChanged.Subscribe([this] {
      if (const auto works = std::exchange(works_, nullptr)) works();
    });
    session_ = std::make_unique<FloorSession>(
        Desk(), program_->Shared(), FloorSurroundings{slow_, [this] { return Desk().EntryIsWritten(); }});
    session_->JournalFailed.Always([this](const std::string& sentence) { failures_.push_back(sentence); });
    Serve();
  }
  void TearDown() override {
    slow_.LetPass(100);
    server_.reset();
    session_.reset();
    EXPECT_FALSE(slow_.WasDisturbed());
  }

  void SendFigure(HttpClient& client, int sequence, const std::string& text) {
    client.Send(RequestText("POST", "/a/figures", Authorized(1), Figure(sequence, "G2", text, "add")));
  }
  /// Sends a figure, whose write is under way afterwards.
  void BeginWrite(HttpClient& client, int sequence, const std::string& text) {
    SendFigure(client, sequence, text);
    slow_.WaitForSync();
  }
  [[nodiscard]] std::size_t Journalled() const { return ReadJournal(slow_.synced).figures.size(); }
  /// The machine is switched off, and the program continues from what is on its disk.
  void RestartFromDisk() {
    journal_.synced = slow_.synced;
    StartAnew();
  }

  SlowJournal slow_;
  std::function<void()> works_;  ///< called once, when a long work of the desk begins
  Subscription work_;
};

TEST_F(FloorDisk, The_desk_and_other_devices_go_on_while_a_figure_waits_for_the_disk) {
  const std::string revision = Revision();
  Get(Changes(revision, "d9"));
  HttpClient poll(server_->Port());
  poll.Send(RequestText("GET", Changes(revision, "d9"), Authorized(1)));
  HttpClient device(server_->Port());
  BeginWrite(device, 1, "5");
  EXPECT_EQ(ReadJournal(slow_.Read()).figures.size(), 1U) << "it outlives the program, not the machine";
  bool isHandled = false;
  QTimer::singleShot(0, [&] { isHandled = true; });
  EXPECT_TRUE(RunUntil([&] { return isHandled; }));
  EXPECT_EQ(poll.Receive().Json()["cells"].toArray(), Cells({"G2", 1, "5"}));
  EXPECT_EQ(Ask(RequestText("GET", "/", "")).status, 200);
  EXPECT_EQ(Get("/a/lines").status, 200);
  EXPECT_FALSE(device.HasAnswer());
  EXPECT_TRUE(slow_.IsSyncing());
  slow_.LetPass();
  EXPECT_EQ(StateOf(device.Receive()), "stored");
  EXPECT_EQ(Journalled(), 1U);
}

TEST_F(FloorDisk, Figures_that_come_meanwhile_are_answered_together_after_the_next_sync) {
  HttpClient first(server_->Port());
  BeginWrite(first, 1, "5");
  HttpClient again(server_->Port());
  SendFigure(again, 1, "5");
  HttpClient second(server_->Port());
  SendFigure(second, 2, "1");
  HttpClient third(server_->Port());
  SendFigure(third, 3, "1");
  for (HttpClient* const client : {&first, &again, &second, &third}) EXPECT_FALSE(client->HasAnswer());
  EXPECT_EQ(Count({"G2", 1}, 1), "5") << "a save must not store what the journal does not have";
  slow_.LetPass();
  EXPECT_EQ(StateOf(first.Receive()), "stored");
  slow_.WaitForSync();
  for (HttpClient* const client : {&second, &third}) EXPECT_FALSE(client->HasAnswer());
  slow_.LetPass();
  for (HttpClient* const client : {&again, &second, &third}) EXPECT_EQ(StateOf(client->Receive()), "stored");
  EXPECT_EQ(slow_.syncs, 2);
  EXPECT_EQ(Journalled(), 3U);
  EXPECT_EQ(Count({"G2", 1}, 1), "7");
}

TEST_F(FloorDisk, A_figure_whose_sync_fails_is_refused_and_those_that_came_meanwhile_are_not) {
  HttpClient first(server_->Port());
  BeginWrite(first, 1, "5");
  HttpClient later(server_->Port());
  SendFigure(later, 2, "2");
  EXPECT_FALSE(later.HasAnswer());
  slow_.LetFail();
  EXPECT_EQ(first.Receive().status, 503);
  EXPECT_EQ(failures_, std::vector<std::string>{"ديسك خراب است."});
  slow_.WaitForSync();
  EXPECT_FALSE(later.HasAnswer());
  slow_.LetPass();
  EXPECT_EQ(StateOf(later.Receive()), "stored");
  SendFigure(first, 1, "5");
  EXPECT_EQ(StateOf(first.Receive()), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "7") << "applied once";
  EXPECT_EQ(Journalled(), 2U);
  RestartFromDisk();
  EXPECT_EQ(session_->Replay().entered, 1U);
  EXPECT_EQ(Count({"G2", 1}, 1), "7");
}

TEST_F(FloorDisk, A_figure_is_refused_as_often_as_the_sync_fails_and_the_desk_is_informed_once) {
  HttpClient device(server_->Port());
  for (int i = 0; i < 3; ++i) {
    BeginWrite(device, 1, "5");
    slow_.LetFail();
    EXPECT_EQ(device.Receive().status, 503);
  }
  EXPECT_EQ(failures_.size(), 1U);
  BeginWrite(device, 1, "5");
  slow_.LetPass();
  EXPECT_EQ(StateOf(device.Receive()), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "5");
}

TEST_F(FloorDisk, An_unknown_barcode_that_was_written_again_after_a_failure_is_listed_once) {
  const std::string request =
      RequestText("POST", "/a/unknown", Authorized(1), R"({"device":"d1","barcode":"6260001"})");
  HttpClient device(server_->Port());
  device.Send(request);
  slow_.WaitForSync();
  slow_.LetFail();
  EXPECT_EQ(device.Receive().status, 503);
  device.Send(request);
  slow_.WaitForSync();
  slow_.LetPass();
  EXPECT_EQ(device.Receive().status, 200);
  RestartFromDisk();
  EXPECT_EQ(session_->Unknown().size(), 1U);
}

TEST_F(FloorDisk, A_tick_of_the_form_does_not_wait_for_the_disk_either) {
  ASSERT_TRUE(Type(3, FloorLines::ColumnOf(1), "4"));
  Desk().Timer1.Fire();
  slow_.WaitForSync();
  HttpClient device(server_->Port());
  SendFigure(device, 1, "5");
  Desk().Timer1.Fire();
  EXPECT_FALSE(device.HasAnswer());
  EXPECT_TRUE(slow_.IsSyncing());
  slow_.LetPass();
  slow_.WaitForSync();
  EXPECT_FALSE(device.HasAnswer());
  EXPECT_EQ(slow_.syncs, 1) << "the desk's own figure";
  slow_.LetPass();
  EXPECT_EQ(StateOf(device.Receive()), "stored");
  EXPECT_EQ(Journalled(), 2U);
}

TEST_F(FloorDisk, A_save_stores_a_figure_after_the_disk_has_it_as_applied) {
  HttpClient first(server_->Port());
  BeginWrite(first, 1, "5");
  HttpClient later(server_->Port());
  SendFigure(later, 2, "2");
  EXPECT_FALSE(later.HasAnswer());
  works_ = [this] { slow_.LetPass(); };
  bool isEarly = false;
  const Subscription stores = Desk().pgbStatus.StateChanged.Subscribe(
      [&] { isEarly = isEarly || (Desk().pgbStatus.Visible() && slow_.IsSyncing()); });
  Save();
  EXPECT_FALSE(isEarly);
  EXPECT_EQ(Journalled(), 0U) << "the database has it";
  EXPECT_EQ(StateOf(first.Receive()), "stored");
  EXPECT_EQ(StateOf(later.Receive()), "paused");
  RestartFromDisk();
  EXPECT_TRUE(session_->Left().Cells().empty());
  EXPECT_EQ(StateOf(Post("/a/figures", Figure(1, "G2", "5", "add"))), "stored");
  EXPECT_EQ(Count({"G2", 1}, 1), "5") << "applied once";
}

TEST_F(FloorDisk, A_save_after_a_sync_that_fails_acknowledges_what_the_database_has) {
  HttpClient device(server_->Port());
  BeginWrite(device, 1, "5");
  works_ = [this] { slow_.LetFail(); };
  Save();
  EXPECT_EQ(Journalled(), 0U);
  EXPECT_EQ(StateOf(device.Receive()), "stored");
}

TEST_F(FloorDisk, The_form_ends_while_a_sync_is_under_way) {
  HttpClient device(server_->Port());
  BeginWrite(device, 1, "5");
  ASSERT_TRUE(Type(3, FloorLines::ColumnOf(1), "4"));
  slow_.LetPass(2);
  Desk().Unload();
  EXPECT_EQ(session_->Ended(), FloorSession::End::Unloaded);
  EXPECT_EQ(Journalled(), 2U);
  EXPECT_EQ(StateOf(device.Receive()), "stored");
}

TEST_F(FloorDisk, The_desk_stops_while_a_sync_is_under_way) {
  HttpClient device(server_->Port());
  BeginWrite(device, 1, "5");
  ASSERT_TRUE(Type(3, FloorLines::ColumnOf(1), "4"));
  const std::jthread disk([this] { slow_.LetPass(2); });
  server_.reset();
  EXPECT_FALSE(slow_.IsSyncing());
  session_->Stop();
  session_.reset();
  EXPECT_EQ(Journalled(), 2U) << "the device was not answered, and nothing is lost";
  EXPECT_TRUE(device.WaitForEnd());
}

TEST_F(FloorDisk, The_server_ends_while_half_of_a_request_waits_for_a_sync_that_fails_once) {
  settings_.limits.round = std::chrono::milliseconds(0);
  Serve();
  HttpClient device(server_->Port());
  const std::string item = R"("barcode":"G2","ordinal":1,"op":"add","text":"5"})";
  const std::string body = R"({"device":"d1","items":[{"seq":1,)" + item + R"(,{"seq":2,)" + item + "]}";
  device.Send(RequestText("POST", "/a/figures", Authorized(1), body));
  slow_.WaitForSync();
  EXPECT_FALSE(device.HasAnswer());
  slow_.LetFail();
  slow_.LetPass();
  server_.reset();
  EXPECT_EQ(failures_.size(), 1U);
  const QJsonArray answers = device.Receive().Json()["items"].toArray();
  ASSERT_EQ(answers.size(), 2);
  EXPECT_EQ(answers.at(0).toObject()["state"].toString(), "stored");
  EXPECT_EQ(answers.at(1).toObject()["state"].toString(), "paused");
  EXPECT_EQ(Journalled(), 1U);
  EXPECT_EQ(Count({"G2", 1}, 1), "5");
}

TEST_F(FloorDisk, A_server_that_begins_again_after_a_sync_that_failed_at_its_end_tries_it_again) {
  HttpClient device(server_->Port());
  BeginWrite(device, 1, "5");
  slow_.LetFail();
  Serve();
  HttpClient again(server_->Port());
  BeginWrite(again, 1, "5");
  slow_.LetPass();
  EXPECT_EQ(StateOf(again.Receive()), "stored");
  EXPECT_EQ(Journalled(), 1U);
  EXPECT_EQ(Count({"G2", 1}, 1), "5");
}

}  // namespace
}  // namespace koru::test
