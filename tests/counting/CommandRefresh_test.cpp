#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using CommandRefresh = CountingWorld;

TEST_F(CommandRefresh, A_viewed_counting_with_lines_can_be_neither_saved_nor_registered) {
  View(10);
  EXPECT_FALSE(Form().cmdTmpSave.Enabled());
  EXPECT_FALSE(Form().cmdIsFinalized.Enabled());
  EXPECT_TRUE(Form().cmdView.Enabled());
  EXPECT_TRUE(Form().cmdEdit.Enabled());
  EXPECT_TRUE(Form().cmdDelete.Enabled());
  EXPECT_FALSE(Form().cmdFunc.Enabled());
}

TEST_F(CommandRefresh, A_counting_with_a_date_a_store_and_a_first_good_can_be_saved) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  EXPECT_TRUE(Form().cmdTmpSave.Enabled());
  EXPECT_TRUE(Form().cmdIsFinalized.Enabled());

  Form().gdpReceiveDate.Clear();
  Form().Timer1.Fire();
  EXPECT_FALSE(Form().cmdTmpSave.Enabled());
  EXPECT_FALSE(Form().cmdIsFinalized.Enabled());

  Form().gdpReceiveDate.SetValue(clock.Today());
  Form().gmpInventory.ClearSelection();
  Form().Timer1.Fire();
  EXPECT_FALSE(Form().cmdIsFinalized.Enabled());

  Form().gmpInventory.Select(2);
  Form().flexDetail.SetTextMatrix(1, 3, "");
  Form().Timer1.Fire();
  EXPECT_FALSE(Form().cmdTmpSave.Enabled());
}

TEST_F(CommandRefresh, A_counting_without_lines_cannot_be_saved) {
  ViewAndEdit(12);
  Form().gdpReceiveDate.SetValue(clock.Today());
  Form().Timer1.Fire();
  EXPECT_FALSE(Form().cmdTmpSave.Enabled());
}

TEST_F(CommandRefresh, Save_and_Register_say_what_is_missing_and_its_box_is_marked) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  EXPECT_EQ(Form().cmdTmpSave.Remark(), "");
  EXPECT_EQ(Form().gmpInventory.Remark() + Form().gdpReceiveDate.Remark(), "");

  Form().gmpInventory.ClearSelection();
  Form().gdpReceiveDate.Clear();
  Form().flexDetail.SetRows(1);
  Form().Timer1.Fire();
  const std::string all = "براي ثبت، اين ها كم است: انبار، تاريخ تهيه، سطر كالا (با «كالاها»)";
  EXPECT_EQ(Form().cmdTmpSave.Remark(), all);
  EXPECT_EQ(Form().cmdIsFinalized.Remark(), all);
  EXPECT_NE(Form().gmpInventory.Remark(), "");
  EXPECT_NE(Form().gdpReceiveDate.Remark(), "");

  Form().gdpReceiveDate.SetValue(clock.Today());
  Form().Timer1.Fire();
  EXPECT_EQ(Form().cmdTmpSave.Remark(), "براي ثبت، اين ها كم است: انبار، سطر كالا (با «كالاها»)");
  EXPECT_EQ(Form().gdpReceiveDate.Remark(), "");
}

TEST_F(CommandRefresh, While_a_counting_is_viewed_Register_names_the_command_that_leads_to_it) {
  View(10);
  EXPECT_EQ(Form().cmdIsFinalized.Remark(), "براي ثبت نهايي، نخست «اصلاح» را بزنيد.");
  EXPECT_EQ(Form().cmdTmpSave.Remark(), "چيزي براي ثبت نيست: براي تغيير، «اصلاح» را بزنيد.");
}

TEST_F(CommandRefresh, An_apostrophe_in_the_manual_number_marks_its_box_and_is_named_by_the_save) {
  ViewAndEdit(10);
  ASSERT_TRUE(Form().txtGNO.UserType("O'Neil"));
  Form().Timer1.Fire();
  EXPECT_NE(Form().txtGNO.Remark(), "");
  ASSERT_TRUE(Form().cmdTmpSave.Enabled());
  NewStatements();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewStatements().size(), 1U) << "the question for the right alone";
  const Texts shown = NewMessages();
  ASSERT_EQ(shown.size(), 1U);
  EXPECT_TRUE(shown[0].starts_with("شماره دستي آپوستروف دارد")) << shown[0];
  EXPECT_EQ(Form().Focus(), &Form().txtGNO);
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  ASSERT_TRUE(Form().txtGNO.UserType("O''Neil"));
  Form().Timer1.Fire();
  EXPECT_EQ(Form().txtGNO.Remark(), "") << "two of them are one, and are stored";
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(database.Scalar("select ManualCode from tblInventoryCounting where ID=10"), "O'Neil");
}

TEST_F(CommandRefresh, Nothing_is_missing_in_a_counting_that_is_not_entered) {
  View(12);
  EXPECT_TRUE(Form().cmdTmpSave.Remark().find("«اصلاح»") != std::string::npos);
  EXPECT_EQ(Form().gdpReceiveDate.Remark(), "") << "it has no date, and none can be written now";
  View(11);
  EXPECT_EQ(Form().cmdTmpSave.Remark(), "اين شمارش ثبت نهايي شده است.");
  control.ClearShow();
  EXPECT_TRUE(Form().cmdTmpSave.Remark().find("«جديد»") != std::string::npos);
}

TEST_F(CommandRefresh, A_final_counting_can_only_be_returned) {
  View(11);
  EXPECT_FALSE(Form().cmdEdit.Enabled());
  EXPECT_FALSE(Form().cmdDelete.Enabled());
  EXPECT_TRUE(Form().cmdFunc.Enabled());

  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdFunc);
  EXPECT_EQ(Form().txtCode.Text(), "");
  EXPECT_TRUE(Form().cmdFunc.Enabled()) << "until the next tick";
  Form().Timer1.Fire();
  EXPECT_TRUE(Form().cmdEdit.Enabled());
  EXPECT_TRUE(Form().cmdDelete.Enabled());
  EXPECT_FALSE(Form().cmdFunc.Enabled());
}

TEST_F(CommandRefresh, A_second_press_of_a_save_finds_it_unavailable) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  Click(Form().cmdTmpSave);
  EXPECT_FALSE(Form().cmdTmpSave.UserClick()) << "before the timer's next tick";
  Click(Form().cmdEdit);
  Form().Timer1.Fire();
  Click(Form().cmdIsFinalized);
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick());
  EXPECT_EQ(Form().txtCode.Text(), "2");
}

TEST_F(CommandRefresh, What_was_given_up_cannot_be_registered_before_the_next_tick) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick());

  Click(Form().cmdEdit);
  Form().Timer1.Fire();
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdExit);
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick()) << "given up by Exit";
}

TEST_F(CommandRefresh, A_registration_that_fails_cannot_be_pressed_twice_either) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  failing.Plan().FailAt(5 + LooksForChangesFirst());
  Click(Form().cmdIsFinalized);
  failing.Plan().FailAt(0);
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick());
}

TEST_F(CommandRefresh, After_a_save_the_keyboard_is_where_nothing_is_written) {
  ViewAndEdit(10);
  Form().Timer1.Fire();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(Form().Focus(), &Form().cmdEdit);
  Click(Form().cmdEdit);
  Form().Timer1.Fire();
  Click(Form().cmdIsFinalized);
  EXPECT_EQ(Form().Focus(), &Form().cmdView);
}

TEST_F(CommandRefresh, An_empty_form_has_nothing_to_view_or_to_change) {
  control.ClearShow();
  Form().Timer1.Fire();
  EXPECT_FALSE(Form().cmdView.Enabled());
  EXPECT_FALSE(Form().cmdEdit.Enabled());
  EXPECT_FALSE(Form().cmdFunc.Enabled());
}

TEST_F(CommandRefresh, An_unavailable_button_also_looks_so) {
  View(11);
  for (const Button* button : {&Form().cmdCancel, &Form().cmdDelete, &Form().cmdEdit, &Form().cmdExit,
                               &Form().cmdIsFinalized, &Form().cmdNew, &Form().cmdTmpSave, &Form().cmdView,
                               &Form().cmdCalc, &Form().cmdDeleteAll, &Form().cmdGoods}) {
    EXPECT_EQ(button->LooksAvailable(), button->Enabled()) << button->Name();
  }
}

}  // namespace
}  // namespace koru::test
