// Figures of the floor that a program has left when it ended before a save.

#include <filesystem>
#include <fstream>

#include "adapters/system/ReadWhole.h"
#include "desktop/floor/FloorTable.h"
#include "platform/text/FilePath.h"
#include "tests/desktop/floor/FloorDeskTest.h"

namespace koru {
namespace {

constexpr const char* kRice = "6261";
constexpr const char* kOil = "6262";

class FloorLeft : public FloorDeskTest {
 protected:
  /// A program has ended with two figures that it has not saved.
  void SetUp() override {
    OpenInEdit();
    desk->Session()->Hello(2, "d2", "تبلت انبار");
    Set(2, kRice, "9");
    Set(3, kOil, "8");
    StartAnew();
  }
  [[nodiscard]] std::filesystem::path FileEndingIn(const char* ending) const {
    for (const auto& entry : std::filesystem::directory_iterator(folder.Path() / "floor")) {
      if (entry.path().extension() == ending) return entry.path();
    }
    return {};
  }
  /// Damages the line of the journal with that text.
  void DamageJournal(const std::string& line) {
    const std::filesystem::path file = FileEndingIn(".journal");
    std::error_code error;
    std::string text = ReadWhole(file, error);
    const std::size_t at = text.find(line);
    ASSERT_NE(at, std::string::npos);
    text[at] ^= 1;
    std::ofstream(file, std::ios::binary) << text;
  }
  /// Makes the desk unable to read the journal.
  void ReplaceJournalByFolder() {
    const std::filesystem::path journal = FileEndingIn(".journal");
    ASSERT_TRUE(std::filesystem::remove(journal));
    std::filesystem::create_directory(journal);
  }
  void AllowRegistration() {
    world.database.Execute("insert into tblPelinUserPermission (UserID,FormPermissionID) values (1,80606)");
  }
  /// Presses Edit and answers the offer.
  [[nodiscard]] bool EditAndAnswer(const std::function<void(QDialog&)>& answer) {
    return WithDialog(
        "koru::LeftFiguresDialog",
        [this] {
          Edit();
          desk->Refresh();
        },
        answer);
  }
  [[nodiscard]] bool EditAndChoose(const char* button) {
    return EditAndAnswer([button](QDialog& dialog) { Click(dialog, button); });
  }
};

TEST_F(FloorLeft, Are_offered_by_the_next_Edit_in_a_list_without_a_server) {
  std::vector<QString> first;
  EXPECT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    const auto& table = *dialog.findChild<FloorTable*>(QStringLiteral("leftTable"));
    EXPECT_EQ(table.rowCount(), 2);
    for (int col = 0; col < 5; ++col) first.push_back(table.item(0, col)->text());
    EXPECT_FALSE(table.item(0, 5)->text().isEmpty());
    Click(dialog, "takeLeft");
  }));
  EXPECT_EQ(first, (std::vector<QString>{"شمارش دوم", "برنج", "6261", "9", "تبلت انبار"}));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  EXPECT_EQ(Cell(2, LineColumn::ThirdCounting), "8");
  EXPECT_FALSE(desk->IsServed());
  EXPECT_EQ(Bar(), "hidden");
}

TEST_F(FloorLeft, That_were_taken_are_saved_and_offered_no_more) {
  ASSERT_TRUE(EditAndChoose("takeLeft"));
  Save();
  EXPECT_EQ(world.database.Scalar("select SecondCounting from tblInventoryCountingDetail where RowNumber=1"),
            "9");
  StartAnew();
  Edit();
  desk->Refresh();
  EXPECT_EQ(desk->Session(), nullptr) << "there is no journal";
}

TEST_F(FloorLeft, That_nobody_wants_are_kept_aside) {
  ASSERT_TRUE(EditAndChoose("forgoLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "");
  Find<QAction>("floorCommand").trigger();
  ASSERT_TRUE(desk->IsServed());
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Click(*desk->Dialog(), "floorTakeBack"); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, Wait_with_a_line_that_says_so_when_the_desk_decides_later) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  EXPECT_EQ(Bar(), "2 رقم گوشي\u200cها در اين شمارش نيست.");
  EXPECT_FALSE(desk->IsServed());
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Click(*window, "floorLeft"); },
      [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "");
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Click(*window, "floorLeft"); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  EXPECT_EQ(Bar(), "hidden");
}

TEST_F(FloorLeft, Keep_the_devices_waiting_for_the_decision_which_the_line_of_an_open_floor_says) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  ASSERT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Find<QAction>("floorCommand").trigger(); },
      [](QDialog& dialog) { Click(dialog, "decideLater"); }));
  ASSERT_TRUE(desk->IsServed());
  EXPECT_EQ(Set(1, kRice, "12", "10").state, FigureState::Paused);
  EXPECT_EQ(Bar(), "2 رقم گوشي\u200cها در اين شمارش نيست. گوشي\u200cها تا تصميم شما درنگ كرده\u200cاند.");
  world.messages.WillAnswer(Answer::Yes);
  Save();
  EXPECT_EQ(Bar(),
            "2 رقم گوشي\u200cها در اين شمارش نيست. گوشي\u200cها تا «اصلاح» و تصميم شما درنگ كرده\u200cاند.");
}

TEST_F(FloorLeft, Are_not_said_to_be_restored_when_the_entry_has_ended_meanwhile) {
  std::vector<std::string> said;
  const Subscription reported =
      Counting().CommandReported.Subscribe([&](const std::string& text) { said.push_back(text); });
  EXPECT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    world.messages.WillAnswer(Answer::Yes);
    EXPECT_TRUE(Counting().cmdTmpSave.UserClick());
    Click(dialog, "takeLeft");
  }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "");
  ASSERT_FALSE(said.empty());
  EXPECT_EQ(said.back(), "رقم\u200cهاي مانده وارد نشد: اين شمارش اكنون در حال اصلاح نيست.");
}

TEST_F(FloorLeft, Can_be_taken_after_the_floor_was_closed_too) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  world.messages.WillAnswer(Answer::Yes);
  desk->Stop();
  Bar();
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Click(*window, "floorLeft"); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, Are_named_before_a_cancel_while_the_desk_has_not_decided) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  NewMessages();
  SaidAtCancel(2);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 2U);
  EXPECT_EQ(messages[0].find("2 رقم گوشي\u200cها"), 0U) << messages[0];
}

TEST_F(FloorLeft, Are_named_before_a_registration_which_No_keeps_from_writing_anything) {
  AllowRegistration();
  ASSERT_TRUE(EditAndChoose("decideLater"));
  Tick();
  NewMessages();
  world.messages.WillAnswer(Answer::No);
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("2 رقم گوشي\u200cها در اين شمارش نيست. با ثبت نهايي"), 0U) << messages[0];
  EXPECT_FALSE(Counting().IsFinal());
  EXPECT_TRUE(Counting().IsBeingEntered());
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Click(*window, "floorLeft"); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  Tick();
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  EXPECT_TRUE(Counting().IsFinal());
  EXPECT_EQ(NewMessages(), test::Texts{}) << "nothing is left";
}

TEST_F(FloorLeft, That_a_registration_was_to_leave_out_are_kept_aside) {
  AllowRegistration();
  ASSERT_TRUE(EditAndChoose("decideLater"));
  Tick();
  world.messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  desk->Refresh();
  EXPECT_TRUE(Counting().IsFinal());
  EXPECT_EQ(Bar(), "hidden");
  EXPECT_FALSE(FileEndingIn(".aside").empty());
}

TEST_F(FloorLeft, Are_named_before_the_first_temporary_save_that_sets_them_aside) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  NewMessages();
  world.messages.WillAnswer(Answer::No);
  Save();
  EXPECT_TRUE(Counting().IsBeingEntered());
  EXPECT_TRUE(FileEndingIn(".aside").empty());
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("2 رقم گوشي\u200cها در اين شمارش نيست. با ثبت موقت"), 0U) << messages[0];
  EXPECT_NE(messages[0].find("«بازگرداندن كنارگذاشته\u200cها...»"), std::string::npos) << messages[0];
  world.messages.WillAnswer(Answer::Yes);
  Save();
  EXPECT_FALSE(Counting().IsBeingEntered());
  EXPECT_FALSE(FileEndingIn(".aside").empty());
  NewMessages();
  Edit();
  Save();
  EXPECT_EQ(NewMessages(), test::Texts{}) << "they are aside";
  Edit();
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Find<QAction>("floorCommand").trigger(); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, That_were_not_offered_before_a_registration_are_offered_then_and_nothing_is_written) {
  AllowRegistration();
  Edit();
  Tick();
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Counting().cmdIsFinalized.UserClick(); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_FALSE(Counting().IsFinal()) << "the lines with the figures have not been seen";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, In_a_journal_that_is_not_open_are_asked_about_before_a_registration_alone) {
  AllowRegistration();
  const auto held = journals.Open(Owner());
  Edit();
  desk->Refresh();
  Tick();
  NewMessages();
  world.messages.WillAnswer(Answer::No);
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  EXPECT_FALSE(Counting().IsFinal());
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("دفتر رقم\u200cهاي گوشي\u200cهاي اين شمارش باز نشده است"), 0U) << messages[0];
  Save();
  EXPECT_FALSE(Counting().IsBeingEntered());
  EXPECT_EQ(NewMessages(), test::Texts{}) << "the next Edit offers them";
}

TEST_F(FloorLeft, In_a_journal_that_cannot_be_read_are_asked_about_before_a_registration) {
  AllowRegistration();
  ReplaceJournalByFolder();
  Edit();
  desk->Refresh();
  Tick();
  NewMessages();
  world.messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Counting().cmdIsFinalized.UserClick());
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_TRUE(Counting().IsFinal());
}

TEST_F(FloorLeft, Of_a_count_that_a_blind_desk_may_not_see_have_no_text) {
  Find<QAction>("blindEntry3").trigger();
  QString hidden;
  QString shown;
  ASSERT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    const auto& table = *dialog.findChild<FloorTable*>(QStringLiteral("leftTable"));
    hidden = table.item(0, 3)->text();
    shown = table.item(1, 3)->text();
    Click(dialog, "decideLater");
  }));
  EXPECT_EQ(hidden, QStringLiteral("پنهان"));
  EXPECT_EQ(shown, QStringLiteral("8"));
}

TEST_F(FloorLeft, Are_offered_by_the_command_too) {
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog",
      [this] {
        Tick();
        world.messages.WillAnswer(Answer::Yes);
        Find<QAction>("floorCommand").trigger();
      },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_TRUE(desk->IsServed());
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, Are_not_offered_while_another_program_has_them_which_is_said_once) {
  const auto held = journals.Open(Owner());
  Edit();
  desk->Refresh();
  desk->Refresh();
  EXPECT_EQ(desk->Session(), nullptr);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_NE(messages[0].find("در اختيار برنامة ديگري است"), std::string::npos) << messages[0];
}

TEST_F(FloorLeft,
       That_are_taken_back_at_once_after_a_cancel_close_the_floor_of_the_entry_that_was_cancelled) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  ASSERT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Find<QAction>("floorCommand").trigger(); },
      [](QDialog& dialog) { Click(dialog, "decideLater"); }));
  ASSERT_TRUE(desk->IsServed());
  ASSERT_TRUE(Counting().flexDetail.UserEdit(1, LineColumn::ThirdCounting, "4"));
  for (int i = 0; i < 2; ++i) world.messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Counting().cmdCancel.UserClick());
  ASSERT_EQ(desk->Session()->Ended(), FloorSession::End::Cancelled);
  Edit();
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { desk->OfferLeft(); },
      [](QDialog& dialog) { Click(dialog, "takeLeft"); }));
  EXPECT_FALSE(desk->IsServed()) << "its server must not outlive its session";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, In_a_journal_with_damaged_lines_are_offered_after_the_desk_has_read_of_the_damage) {
  DamageJournal("\t8\t");
  bool isShown = false;
  EXPECT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    isShown = !NewMessages().empty();
    EXPECT_EQ(dialog.findChild<FloorTable*>(QStringLiteral("leftTable"))->rowCount(), 1);
    Click(dialog, "takeLeft");
  }));
  EXPECT_TRUE(isShown) << "before";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  EXPECT_EQ(Cell(2, LineColumn::ThirdCounting), "");
  Find<QAction>("floorCommand").trigger();
  EXPECT_TRUE(desk->IsServed());
  EXPECT_EQ(NewMessages(), test::Texts{}) << "once";
}

TEST_F(FloorLeft, In_a_journal_with_damaged_lines_are_named_by_their_number_and_where_they_are_kept) {
  DamageJournal("\t8\t");
  ASSERT_TRUE(EditAndAnswer([&](QDialog& dialog) {
    const auto messages = NewMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_NE(messages[0].find(": 1 سطر آن، كه هر كدام مي\u200cتواند يك رقم باشد، خوانده نشد"),
              std::string::npos)
        << messages[0];
    EXPECT_NE(messages[0].find("30 روز نگه داشته مي\u200cشود"), std::string::npos) << messages[0];
    EXPECT_NE(messages[0].find(TextOf(FileEndingIn(".aside"))), std::string::npos) << messages[0];
    Click(dialog, "decideLater");
  }));
}

TEST_F(FloorLeft, In_a_journal_without_its_beginning_are_reported_once_and_the_floor_can_be_opened) {
  DamageJournal("floor1");
  Edit();
  desk->Refresh();
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("دفتر ارقام گوشي\u200cهاي اين شمارش آسيب ديده است و خوانده نشد"), 0U)
      << messages[0];
  EXPECT_NE(messages[0].find(TextOf(FileEndingIn(".aside"))), std::string::npos) << messages[0];
  Find<QAction>("floorCommand").trigger();
  EXPECT_TRUE(desk->IsServed());
  EXPECT_EQ(NewMessages(), test::Texts{});
}

TEST_F(FloorLeft, In_a_damaged_journal_are_reported_by_the_command_too) {
  DamageJournal("floor1");
  Tick();
  world.messages.WillAnswer(Answer::Yes);
  Find<QAction>("floorCommand").trigger();
  EXPECT_TRUE(desk->IsServed());
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 2U) << "the question whether to edit, and the damage";
}

TEST_F(FloorLeft, In_a_journal_that_cannot_be_read_are_reported_once_by_Edit) {
  ReplaceJournalByFolder();
  Edit();
  desk->Refresh();
  desk->Refresh();
  EXPECT_EQ(desk->Session(), nullptr);
  const auto messages = NewMessages();
  ASSERT_EQ(messages.size(), 1U);
  EXPECT_EQ(messages[0].find("دفتر ارقام گوشي\u200cها خوانده نشد: "), 0U) << messages[0];
}

}  // namespace
}  // namespace koru
