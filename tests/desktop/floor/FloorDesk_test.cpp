// When the floor is open, paused and closed, as who is at the desk sees it.

#include <QUrl>

#include "tests/desktop/floor/FloorDeskTest.h"
#include "tests/desktop/floor/server/HttpClient.h"

namespace koru {
namespace {

TEST_F(FloorDeskTest, Nothing_listens_and_nothing_is_shown_before_the_desk_opens_it) {
  Edit();
  EXPECT_EQ(Bar(), "hidden");
  EXPECT_FALSE(desk->IsServed());
  EXPECT_EQ(desk->Session(), nullptr);
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "floor"));
}

TEST_F(FloorDeskTest, In_an_edit_the_command_opens_the_floor_and_shows_its_dialog) {
  OpenInEdit();
  EXPECT_EQ(NewMessages(), std::vector<std::string>());
  ASSERT_NE(desk->Dialog(), nullptr);
  EXPECT_TRUE(desk->Dialog()->isVisible());
  EXPECT_FALSE(desk->Dialog()->isModal());
  EXPECT_EQ(Bar(), "شمارش با گوشي باز است: 0 دستگاه، 0 رقم رسيده، 0 رقم وارد نشده.");
  Set(2, kRice, "9");
  Set(3, kRice, "abc");
  EXPECT_EQ(Bar(), "شمارش با گوشي باز است: 2 دستگاه، 2 رقم رسيده، 1 رقم وارد نشده.");
  EXPECT_TRUE(Find<QWidget>("floorLeft").isHidden()) << "nothing is left";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorDeskTest, A_viewed_counting_is_edited_first_if_the_user_wants_it) {
  Tick();
  world.messages.WillAnswer(Answer::No);
  Find<QAction>("floorCommand").trigger();
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_FALSE(desk->IsServed());
  EXPECT_FALSE(Counting().IsBeingEntered());
  world.messages.WillAnswer(Answer::Yes);
  Find<QAction>("floorCommand").trigger();
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_TRUE(Counting().IsBeingEntered());
  EXPECT_TRUE(desk->IsServed());
}

TEST_F(FloorDeskTest, A_new_counting_is_saved_and_edited_first_if_the_user_wants_it) {
  Tick();
  ASSERT_TRUE(Counting().cmdNew.UserClick());
  Tick();
  desk->Refresh();
  EXPECT_FALSE(Find<QAction>("floorCommand").isEnabled()) << "without lines there is nothing to count";
  ASSERT_TRUE(Counting().cmdGoods.UserClick());
  Tick();
  desk->Refresh();
  NewMessages();
  ASSERT_TRUE(Find<QAction>("floorCommand").isEnabled());
  world.messages.WillAnswer(Answer::No);
  Find<QAction>("floorCommand").trigger();
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_EQ(Counting().CountingID(), 0);
  world.messages.WillAnswer(Answer::Yes);
  Find<QAction>("floorCommand").trigger();
  EXPECT_EQ(NewMessages().size(), 1U) << "one question for both commands";
  EXPECT_GT(Counting().CountingID(), 1);
  EXPECT_TRUE(Counting().IsBeingEntered());
  EXPECT_TRUE(desk->IsServed());
}

TEST_F(FloorDeskTest, An_empty_form_has_no_floor) {
  control.ClearShow();
  Tick();
  desk->Refresh();
  EXPECT_FALSE(Find<QAction>("floorCommand").isEnabled());
}

TEST_F(FloorDeskTest, A_temporary_save_pauses_and_Edit_resumes_with_the_same_codes) {
  OpenInEdit();
  const std::string url = desk->Server()->Url(1, "127.0.0.1");
  Set(2, kRice, "9");
  Save();
  EXPECT_EQ(
      Bar(),
      "شمارش با گوشي درنگ كرده است و با «اصلاح» ادامه مي\u200cيابد: 1 دستگاه، 1 رقم رسيده، 0 رقم وارد نشده.");
  EXPECT_EQ(Set(2, kRice, "11", "9").state, FigureState::Paused);
  Edit();
  EXPECT_EQ(Set(2, kRice, "11", "9").state, FigureState::Stored);
  EXPECT_EQ(desk->Server()->Url(1, "127.0.0.1"), url);
  EXPECT_EQ(Bar(), "شمارش با گوشي باز است: 1 دستگاه، 2 رقم رسيده، 0 رقم وارد نشده.");
}

TEST_F(FloorDeskTest, Registration_closes_it) {
  OpenInEdit();
  Set(2, kRice, "10");
  world.database.Execute("insert into tblPelinUserPermission (UserID,FormPermissionID) values (1,80606)");
  Tick();
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  ASSERT_TRUE(Counting().IsFinal()) << NewMessages().back();
  EXPECT_EQ(Bar(), "hidden");
  EXPECT_FALSE(desk->IsServed());
  EXPECT_FALSE(journals.Has(Owner()));
}

TEST_F(FloorDeskTest, Closing_the_dialog_leaves_the_floor_open) {
  OpenInEdit();
  const QPointer<FloorDialog> dialog = desk->Dialog();
  QTest::keyClick(dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_TRUE(desk->IsServed());
  EXPECT_EQ(Set(2, kRice, "9").state, FigureState::Stored);
  Bar();
  Click(*window, "floorShow");
  ASSERT_FALSE(dialog.isNull());
  EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FloorDeskTest, The_desk_closes_it_after_a_question_and_may_open_it_again_with_the_same_codes) {
  OpenInEdit();
  Set(2, kRice, "9");
  const std::string code = desk->Session()->Code(1);
  Bar();
  world.messages.WillAnswer(Answer::No);
  Click(*window, "floorStop");
  EXPECT_TRUE(desk->IsServed());
  world.messages.WillAnswer(Answer::Yes);
  Click(*window, "floorStop");
  EXPECT_FALSE(desk->IsServed());
  EXPECT_EQ(Bar(), "hidden");
  NewMessages();
  Find<QAction>("floorCommand").trigger();
  ASSERT_TRUE(desk->IsServed());
  EXPECT_EQ(NewMessages(), std::vector<std::string>());
  EXPECT_EQ(desk->Session()->Code(1), code);
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorDeskTest, A_floor_that_is_opened_again_at_once_has_a_dialog_that_stays) {
  OpenInEdit();
  const QPointer<FloorDialog> first = desk->Dialog();
  world.messages.WillAnswer(Answer::Yes);
  desk->Stop();
  desk->Open();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(first.isNull());
  ASSERT_NE(desk->Dialog(), nullptr);
  EXPECT_TRUE(desk->Dialog()->isVisible());
  Set(2, kRice, "9");
  desk->Refresh();
  EXPECT_NE(desk->Dialog()
                ->findChild<QLabel*>(QStringLiteral("floorSummary"))
                ->text()
                .indexOf(QStringLiteral("1 رقم رسيده")),
            -1);
}

TEST_F(FloorDeskTest, A_closed_floor_keeps_its_journal_until_the_save) {
  const FloorJournalOwner owner = Owner();
  OpenInEdit();
  Set(2, kRice, "9");
  world.messages.WillAnswer(Answer::Yes);
  desk->Stop();
  EXPECT_TRUE(journals.Has(owner));
  Save();
  EXPECT_EQ(desk->Session(), nullptr);
  EXPECT_FALSE(journals.Has(owner));
}

TEST_F(FloorDeskTest, Closing_the_window_ends_the_server_before_the_form) {
  OpenInEdit();
  Set(2, kRice, "9");
  const QPointer<FloorDialog> dialog = desk->Dialog();
  Counting().Unload();
  EXPECT_FALSE(desk->IsServed());
  EXPECT_EQ(desk->Session(), nullptr);
  EXPECT_TRUE(journals.Has(Owner())) << "no save holds the figure";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(dialog.isNull());
}

TEST_F(FloorDeskTest, Another_counting_closes_it) {
  world.database.Execute("insert into tblInventoryCounting (ID,InventoryID,CreatorID) values (2,1,1)");
  OpenInEdit();
  Set(2, kRice, "9");
  Save();
  ASSERT_TRUE(control.View(2));
  EXPECT_EQ(Bar(), "hidden");
  EXPECT_FALSE(desk->IsServed());
}

TEST_F(FloorDeskTest, The_log_is_that_of_one_counting) {
  OpenInEdit();
  Set(2, kRice, "954");
  Save();
  desk->Refresh();
  world.database.Execute("insert into tblInventoryCounting (ID,InventoryID,CreatorID) values (2,1,1)");
  ASSERT_TRUE(control.View(1));
  OpenInEdit();
  EXPECT_NE(desk->Log().Csv().indexOf("954"), -1) << "the same counting";
  Save();
  ASSERT_TRUE(control.View(2));
  desk->Refresh();
  OpenInEdit();
  EXPECT_EQ(desk->Log().Csv().indexOf("954"), -1);
}

TEST_F(FloorDeskTest, A_second_program_on_the_same_counting_is_refused_with_one_sentence) {
  const auto held = journals.Open(Owner());
  Edit();
  Find<QAction>("floorCommand").trigger();
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_NE(messages[0].find("در اختيار برنامة ديگري است"), std::string::npos) << messages[0];
  EXPECT_FALSE(desk->IsServed());
  EXPECT_EQ(Bar(), "hidden");
}

TEST_F(FloorDeskTest, A_device_takes_part_over_the_network_from_the_code_on_the_screen_to_the_cell) {
  OpenInEdit();
  const QUrl url(ToQt(desk->Server()->Url(2, "127.0.0.1")));
  const std::string code = "Authorization: Bearer " + FromQt(url.fragment()) + "\r\n";
  const auto ask = [&](const char* target, const std::string& body) {
    test::HttpClient client(static_cast<std::uint16_t>(url.port()));
    client.Send(test::RequestText("POST", target, code, body));
    return client.Receive();
  };
  const auto hello = ask("/a/hello", R"({"device":"d2","name":"تبلت انبار"})");
  EXPECT_EQ(hello.status, 200);
  EXPECT_EQ(FromQt(hello.Json()["store"].toString()), "انبار مركزي");
  EXPECT_EQ(hello.Json().keys(), QStringList({"count", "counting", "open", "store"}));
  const std::string figure =
      R"({"device":"d2","items":[{"seq":1,"barcode":"6261","ordinal":1,"op":"set","text":"۹٫۵","base":""}]})";
  EXPECT_EQ(ask("/a/figures", figure).status, 200);
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9.5");
  EXPECT_EQ(Bar(), "شمارش با گوشي باز است: 1 دستگاه، 1 رقم رسيده، 0 رقم وارد نشده.");
  world.messages.WillAnswer(Answer::Yes);
  desk->RenewCode(2);
  EXPECT_EQ(ask("/a/figures", figure).status, 401) << "the old code is out";
}

TEST_F(FloorDeskTest,
       Devices_know_a_counting_again_and_read_nothing_of_the_database_in_what_they_know_it_by) {
  const auto mark = [&] {
    const QUrl url(ToQt(desk->Server()->Url(1, "127.0.0.1")));
    test::HttpClient client(static_cast<std::uint16_t>(url.port()));
    const std::string code = "Authorization: Bearer " + FromQt(url.fragment()) + "\r\n";
    client.Send(test::RequestText("POST", "/a/hello", code, R"({"device":"d2","name":"n"})"));
    return FromQt(client.Receive().Json()["counting"].toString());
  };
  OpenInEdit();
  const std::string first = mark();
  EXPECT_EQ(first.size(), 16U);
  EXPECT_EQ(first.find_first_not_of("0123456789abcdef"), std::string::npos) << first;
  world.messages.WillAnswer(Answer::Yes);
  desk->RenewCode(1);
  EXPECT_EQ(mark(), first) << "of the same counting";
  Save();
  world.database.Execute("insert into tblInventoryCounting (ID,InventoryID,CreatorID) values (2,1,1)");
  ASSERT_TRUE(control.View(2));
  desk->Refresh();
  OpenInEdit();
  EXPECT_EQ(mark().size(), 16U);
  EXPECT_NE(mark(), first) << "of another counting";
}

/// Journals of a disk that is full until it has room.
class FullJournals : public FloorJournalStore {
 public:
  explicit FullJournals(FloorJournalStore& store) : store_(store) {}
  [[nodiscard]] std::unique_ptr<FloorJournal> Open(const FloorJournalOwner& owner) override {
    return std::make_unique<Full>(store_.Open(owner), hasRoom);
  }
  [[nodiscard]] bool Has(const FloorJournalOwner& owner) const override { return store_.Has(owner); }

  bool hasRoom = false;

 private:
  class Full : public FloorJournal {
   public:
    Full(std::unique_ptr<FloorJournal> journal, const bool& hasRoom)
        : journal_(std::move(journal)), hasRoom_(hasRoom) {}
    [[nodiscard]] std::string Read() const override { return journal_->Read(); }
    void Begin(std::string_view text) override { journal_->Begin(text); }
    void Append(std::string_view lines) override {
      if (!hasRoom_) throw InputError("ديسك پر است.");
      journal_->Append(lines);
    }
    void Sync() override { journal_->Sync(); }
    std::string SetAside() override { return journal_->SetAside(); }
    [[nodiscard]] std::vector<std::string> ReadSetAside() const override { return journal_->ReadSetAside(); }
    void Remove() override { journal_->Remove(); }

   private:
    std::unique_ptr<FloorJournal> journal_;
    const bool& hasRoom_;
  };

  FloorJournalStore& store_;
};

TEST_F(FloorDeskTest, A_journal_that_cannot_be_written_is_reported_once_and_until_it_can_be) {
  FullJournals full(journals);
  delete desk;
  FloorServerSettings settings;
  settings.port = 0;
  desk = new FloorDesk(dynamic_cast<InvCountingWindow&>(*window), Counting(), full, settings,
                       [this] { return addresses; });
  OpenInEdit();
  for (const char* const text : {"1", "2"}) {
    const FloorFigure figure{++sequence, {kRice, 1}, FloorFigure::Operation::Add, text, ""};
    static_cast<void>(desk->Session()->Enter(2, "d2", {&figure, 1}));
    EXPECT_FALSE(desk->Session()->Commit());
  }
  QApplication::processEvents();
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("ديسك پر است."), 0U) << messages[0];
  EXPECT_NE(Bar().find("دفتر رقم\u200cها نوشته نمي\u200cشود."), std::string::npos);
  full.hasRoom = true;
  EXPECT_TRUE(desk->Session()->Commit());
  EXPECT_EQ(Bar().find("دفتر رقم\u200cها نوشته نمي\u200cشود."), std::string::npos);
  Counting().Unload();
}

}  // namespace
}  // namespace koru
