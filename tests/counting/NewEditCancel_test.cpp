#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using NewEditCancel = CountingWorld;
using Answer = FakeMessages::Answer;
constexpr const char* kAreYouSure = "آيا مطمئن هستيد؟";

TEST_F(NewEditCancel, New_proposes_today_the_user_and_the_default_store) {
  View(10);
  NewStatements();
  Click(Form().cmdNew);
  EXPECT_EQ(Mode(), DocumentMode::New);
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
  EXPECT_EQ(Form().gdpReceiveDate.PersianText(), "1404/10/01");
  EXPECT_EQ(Form().txtCreator.Text(), "علي رضايي");
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 2);
  EXPECT_EQ(Form().Focus(), &Form().gmpInventory);
  EXPECT_EQ(NewStatements(),
            (Texts{"{? = CALL spPelinHasPermission( 7, 80601) }", "select FullName from tbluser where ID =7",
                   "Select * From tblInventoryUser Where UserID=7 and InventoryID=2"}));
}

TEST_F(NewEditCancel, A_default_store_that_the_user_may_not_use_is_not_kept) {
  database.Execute("delete from tblInventoryUser where InventoryID=2");
  control.ClearShow();
  Click(Form().cmdNew);
  EXPECT_EQ(NewMessages(), Texts{"كاربر انتخاب شده در اين انبار مجاز به كار نميباشد."});
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());
  EXPECT_EQ(Mode(), DocumentMode::New);
}

TEST_F(NewEditCancel, Commands_without_the_right_say_so_and_do_nothing) {
  View(10);
  Form().cmdSearch.UserClick();
  EXPECT_EQ(NewMessages(), Texts{});
  database.Execute("delete from tblPelinUserPermission where FormPermissionID>806");
  for (Button* command : {&Form().cmdNew, &Form().cmdEdit, &Form().cmdDelete, &Form().cmdSearch}) {
    Click(*command);
    EXPECT_EQ(NewMessages(), Texts{kNotPermitted}) << command->Name();
    EXPECT_EQ(Mode(), DocumentMode::Viewing);
    EXPECT_EQ(Form().lblIDVal.Caption(), "10");
  }
}

TEST_F(NewEditCancel, Edit_keeps_creator_and_dates) {
  control.SetUserID(7);
  ViewAndEdit(10);
  EXPECT_EQ(Form().txtCreator.Text(), "علي رضايي");
  EXPECT_EQ(Form().gdpReceiveDate.PersianText(), "1404/09/29");
}

TEST_F(NewEditCancel, A_final_counting_cannot_be_edited) {
  control.View(11);
  Form().cmdEdit.SetEnabled(true);
  Click(Form().cmdEdit);
  EXPECT_EQ(NewMessages(), Texts{"اين شمارش ثبت نهايي شده است و نميتوان آن را اصلاح نمود."});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
}

TEST_F(NewEditCancel, Cancel_of_an_edit_restores_the_header_and_leaves_the_changed_lines_on_the_grid) {
  ViewAndEdit(10);
  Form().txtNotes.UserType("changed");
  EXPECT_TRUE(Form().flexDetail.UserEdit(1, 9, "99"));
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_EQ(NewMessages(), Texts{kAreYouSure});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Form().txtNotes.Text(), "شمارش 'پاييز'");
  EXPECT_EQ(Cell(1, 9), "99");
  EXPECT_EQ(
      database.Scalar(
          "select AcceptedCounting from tblInventoryCountingDetail where Barcode='G1' and CountingID=10"),
      "10");
  View(10);
  EXPECT_EQ(Cell(1, 9), "10") << "until the counting is viewed again";
}

TEST_F(NewEditCancel, Cancel_restores_a_store_that_was_changed_without_asking_about_the_lines) {
  ViewAndEdit(10);
  Form().gmpInventory.Select(3);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 2);
  EXPECT_EQ(NewMessages(), Texts{kAreYouSure});
}

TEST_F(NewEditCancel, Cancel_of_a_new_counting_empties_the_form_and_moves_to_Exit) {
  control.ClearShow();
  Click(Form().cmdNew);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());
  EXPECT_EQ(Form().Focus(), &Form().cmdExit);
  EXPECT_EQ(screen.Cursors().back(), Cursor::Normal);
}

TEST_F(NewEditCancel, The_hourglass_shows_while_a_header_is_read_again) {
  ViewAndEdit(10);
  Form().txtGNO.UserType("B-1");
  std::vector<Cursor> seen;
  Form().txtGNO.StateChanged.Always([&] { seen.push_back(screen.CurrentCursor()); });
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_EQ(Form().txtGNO.Text(), "A-10");
  ASSERT_FALSE(seen.empty());
  EXPECT_EQ(seen.front(), Cursor::Hourglass);
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
}

TEST_F(NewEditCancel,
       A_counting_found_by_the_search_does_not_replace_what_is_being_entered_without_a_question) {
  ViewAndEdit(10);
  Form().txtNotes.UserType("typed");
  screen.OnModal = [&](koru::Form& shown) {
    auto& search = dynamic_cast<frmInvSearch&>(shown);
    search.cmdSearch.UserClick();
    int row = 1;
    while (row < search.flexSearch.Rows() && search.flexSearch.TextMatrix(row, 1) != "11") ++row;
    ASSERT_LT(row, search.flexSearch.Rows());
    search.flexSearch.UserDoubleClick(row, 1);
  };
  messages.WillAnswer(Answer::No);
  Click(Form().cmdSearch);
  EXPECT_EQ(NewMessages(), Texts{kAreYouSure});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Form().txtNotes.Text(), "typed");
  EXPECT_EQ(Form().lblIDVal.Caption(), "10");

  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdSearch);
  EXPECT_EQ(NewMessages(), Texts{kAreYouSure});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Form().lblIDVal.Caption(), "11");
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick()) << "before the timer's next tick";
}

TEST_F(NewEditCancel, A_listener_that_keeps_the_entry_is_asked_before_every_way_to_cancel) {
  ViewAndEdit(10);
  Form().txtNotes.UserType("typed");
  screen.OnModal = [&](koru::Form& shown) {
    auto& search = dynamic_cast<frmInvSearch&>(shown);
    search.cmdSearch.UserClick();
    search.flexSearch.UserDoubleClick(1, 1);
  };
  int asked = 0;
  const Subscription keeps = Form().CancelWanted.Subscribe([&](bool& isKept) {
    ++asked;
    isKept = true;
  });
  Click(Form().cmdCancel);
  Click(Form().cmdExit);
  Form().UserClose();
  Click(Form().cmdSearch);
  EXPECT_EQ(asked, 4);
  EXPECT_EQ(NewMessages(), Texts());
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Form().txtNotes.Text(), "typed");
}

TEST_F(NewEditCancel, A_listener_that_keeps_the_entry_is_asked_before_both_saves_which_then_do_nothing) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  Form().txtNotes.UserType("typed");
  std::vector<WantedSave> asked;
  Subscription keeps = Form().SaveWanted.Subscribe([&](WantedSave wanted, bool& isKept) {
    asked.push_back(wanted);
    isKept = true;
  });
  NewStatements();
  Click(Form().cmdTmpSave);
  Click(Form().cmdIsFinalized);
  EXPECT_EQ(asked, (std::vector{WantedSave::Temporary, WantedSave::Final}));
  EXPECT_EQ(NewStatements(), Texts());
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Form().txtNotes.Text(), "typed");
  keeps.End();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
}

TEST_F(NewEditCancel, Any_answer_but_yes_keeps_the_document) {
  ViewAndEdit(10);
  Form().txtGNO.UserType("B-1");
  for (const Answer answer : {Answer::No, Answer::None}) {
    messages.WillAnswer(answer);
    Click(Form().cmdCancel);
    EXPECT_EQ(Mode(), DocumentMode::Editing);
    EXPECT_EQ(Form().txtGNO.Text(), "B-1");
  }
}

TEST_F(NewEditCancel, Exit_of_a_new_document_asks_first_and_only_cancels) {
  control.ClearShow();
  Click(Form().cmdNew);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdExit);
  EXPECT_EQ(NewMessages(), Texts{kAreYouSure});
  EXPECT_EQ(Mode(), DocumentMode::New);
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 2);

  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdExit);
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  ASSERT_NE(control.CountingForm(), nullptr);
  EXPECT_TRUE(Form().Visible());

  Click(Form().cmdExit);
  EXPECT_EQ(control.CountingForm(), nullptr) << "a second Exit closes";
}

TEST_F(NewEditCancel, Closing_the_window_is_Exit) {
  ViewAndEdit(10);
  messages.WillAnswer(Answer::No);
  Form().UserClose();
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_TRUE(Form().Visible());
  messages.WillAnswer(Answer::Yes);
  Form().UserClose();
  Form().UserClose();
  EXPECT_EQ(control.CountingForm(), nullptr);
}

TEST_F(NewEditCancel, An_emptied_create_date_becomes_today) {
  ViewAndEdit(10);
  Form().gdpCreateDate.UserSet(std::nullopt);
  EXPECT_EQ(Form().gdpReceiveDate.PersianText(), "1404/10/01");
  Form().gdpFromDate.UserSet(std::nullopt);
  EXPECT_TRUE(Form().gdpFromDate.IsEmpty()) << "only the create date";
}

TEST_F(NewEditCancel, Without_the_message_component_a_refused_command_ends_quietly) {
  components.Unregister(MessageComponent::kClassName);
  database.Execute("delete from tblPelinUserPermission");
  control.View(10);
  EXPECT_NO_THROW(Click(Form().cmdEdit));
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_FALSE(control.View(999));
}

TEST_F(NewEditCancel, A_database_failure_in_a_command_is_reported_and_the_form_stays_usable) {
  View(10);
  failing.Plan().FailAt(1);
  Click(Form().cmdEdit);
  EXPECT_EQ(NewMessages(), Texts{"عمليات به دليل خطاي پايگاه داده انجام نشد.\nThe server is shutting down."});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  Click(Form().cmdEdit);
  EXPECT_EQ(Mode(), DocumentMode::Editing);
}

}  // namespace
}  // namespace koru::test
