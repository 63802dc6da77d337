// Figures of the floor that a program has left when it ended before a save.

#include "desktop/floor/FloorTable.h"
#include "tests/desktop/floor/FloorLeftTest.h"

namespace koru {
namespace {

class FloorLeft : public FloorLeftTest {};

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
  EXPECT_TRUE(OffersLeft([this] { Click(*desk->Dialog(), "floorTakeBack"); }, "takeLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

TEST_F(FloorLeft, That_are_aside_already_are_said_to_stay_there_when_the_desk_does_without_them) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  world.messages.WillAnswer(Answer::Yes);
  Save();
  Edit();
  std::string said;
  const Subscription reported =
      Counting().CommandReported.Subscribe([&](const std::string& text) { said = text; });
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { desk->OfferLeft(); },
      [](QDialog& dialog) {
        const auto& forgo = *dialog.findChild<QAbstractButton*>(QStringLiteral("forgoLeft"));
        EXPECT_EQ(forgo.text().indexOf(QStringLiteral("30")), -1) << "the days began earlier";
        Click(dialog, "forgoLeft");
      }));
  EXPECT_EQ(said, "رقم\u200cهاي مانده وارد نشد و همچنان كنار گذاشته شده است.");
  EXPECT_EQ(Bar(), "hidden");
}

TEST_F(FloorLeft, Wait_with_a_line_that_says_so_when_the_desk_decides_later) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  EXPECT_EQ(Bar(), "2 رقم گوشي\u200cها در اين شمارش نيست.");
  EXPECT_FALSE(desk->IsServed());
  for (const char* const ofServed : {"floorShow", "floorStop"})
    EXPECT_TRUE(Find<QWidget>(ofServed).isHidden()) << ofServed;
  EXPECT_TRUE(WithDialog(
      "koru::LeftFiguresDialog", [this] { Click(*window, "floorLeft"); },
      [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); }));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "");
  EXPECT_TRUE(OffersLeft([this] { Click(*window, "floorLeft"); }, "takeLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
  EXPECT_EQ(Bar(), "hidden");
}

TEST_F(FloorLeft, Keep_the_devices_waiting_for_the_decision_which_the_line_of_an_open_floor_says) {
  ASSERT_TRUE(EditAndChoose("decideLater"));
  ASSERT_TRUE(OffersLeft([this] { Find<QAction>("floorCommand").trigger(); }, "decideLater"));
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
  EXPECT_TRUE(OffersLeft([this] { Click(*window, "floorLeft"); }, "takeLeft"));
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
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
  ASSERT_TRUE(OffersLeft([this] { Find<QAction>("floorCommand").trigger(); }, "decideLater"));
  ASSERT_TRUE(desk->IsServed());
  ASSERT_TRUE(Counting().flexDetail.UserEdit(1, LineColumn::ThirdCounting, "4"));
  for (int i = 0; i < 2; ++i) world.messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Counting().cmdCancel.UserClick());
  ASSERT_EQ(desk->Session()->Ended(), FloorSession::End::Cancelled);
  Edit();
  EXPECT_TRUE(OffersLeft([this] { desk->OfferLeft(); }, "takeLeft"));
  EXPECT_FALSE(desk->IsServed()) << "its server must not outlive its session";
  EXPECT_EQ(Cell(1, LineColumn::SecondCounting), "9");
}

}  // namespace
}  // namespace koru
