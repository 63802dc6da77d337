#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

/// Undo and redo on the form. Counting 10 has two lines.
class EntryUndo : public CountingWorld {
 protected:
  bool Type(int row, int col, const std::string& text) { return Form().flexDetail.UserEdit(row, col, text); }
  [[nodiscard]] std::string Available() {
    return std::string(Form().mnuUndo.Enabled() ? "undo " : "") + (Form().mnuRedo.Enabled() ? "redo" : "");
  }
  Texts SaidBy(MenuItem& item) {
    Texts said;
    const Subscription listening =
        Form().CommandReported.Subscribe([&said](const std::string& text) { said.push_back(text); });
    EXPECT_TRUE(item.UserClick());
    return said;
  }
};

TEST_F(EntryUndo, The_commands_are_available_when_there_is_a_step) {
  View(10);
  EXPECT_EQ(Available(), "");
  Click(Form().cmdEdit);
  EXPECT_EQ(Available(), "");
  Type(1, LineColumn::FirstCounting, "7");
  EXPECT_EQ(Available(), "undo ");
  Form().mnuUndo.UserClick();
  EXPECT_EQ(Available(), "redo");
  Form().mnuRedo.UserClick();
  EXPECT_EQ(Available(), "undo ");
}

TEST_F(EntryUndo, The_sums_follow_and_a_sentence_says_what_was_done) {
  ViewAndEdit(10);
  const std::string sum = Form().txtTotalValue.Text();
  Type(1, LineColumn::AcceptedCounting, "100");
  ASSERT_NE(Form().txtTotalValue.Text(), sum);
  EXPECT_EQ(SaidBy(Form().mnuUndo), Texts{"1 عدد به حال پيشين برگشت."});
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "10");
  EXPECT_EQ(Form().txtTotalValue.Text(), sum);
  EXPECT_EQ(SaidBy(Form().mnuRedo), Texts{"1 عدد دوباره نوشته شد."});
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "100");
}

TEST_F(EntryUndo, A_step_whose_line_is_deleted_is_skipped_and_a_sentence_says_so) {
  ViewAndEdit(10);
  Type(1, LineColumn::FirstCounting, "7");
  Type(2, LineColumn::FirstCounting, "8");
  messages.WillAnswer(FakeMessages::Answer::Yes);
  ASSERT_TRUE(Form().flexDetail.UserDeleteRow());
  EXPECT_EQ(SaidBy(Form().mnuUndo), Texts{"1 عدد به حال پيشين برگشت؛ 1 گام رد شد، چون سطر آن حذف شده است."});
  Type(1, LineColumn::FirstCounting, "9");
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdDeleteAll);
  EXPECT_EQ(SaidBy(Form().mnuUndo), Texts{"عددي برنگشت؛ 1 گام رد شد، چون سطر آن حذف شده است."});
  EXPECT_EQ(Available(), "");
}

TEST_F(EntryUndo, A_rate_that_the_calculation_has_replaced_stays_and_a_sentence_says_so) {
  ViewAndEdit(10);
  Type(1, LineColumn::Rate, "77");
  Form().flexDetail.SetTextMatrix(1, LineColumn::Rate, "80");
  EXPECT_EQ(SaidBy(Form().mnuUndo), Texts{"عددي برنگشت؛ 1 خانه پس از آن تغيير كرده بود يا عدد را نپذيرفت."});
  EXPECT_EQ(Cell(1, LineColumn::Rate), "80");
}

TEST_F(EntryUndo, Save_ends_the_history) {
  ViewAndEdit(10);
  Type(1, LineColumn::FirstCounting, "7");
  Form().Timer1.Fire();
  Click(Form().cmdTmpSave);
  ASSERT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Available(), "");
  Click(Form().cmdEdit);
  EXPECT_EQ(Available(), "");
}

TEST_F(EntryUndo, A_refused_save_keeps_it) {
  ViewAndEdit(10);
  Type(1, LineColumn::FirstCounting, "7");
  database.Execute("delete from tblPelinUserPermission where FormPermissionID in (80605,80606)");
  Form().Timer1.Fire();
  Click(Form().cmdTmpSave);
  ASSERT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Available(), "undo ");
}

TEST_F(EntryUndo, Cancel_ends_the_history_and_a_refused_one_keeps_it) {
  ViewAndEdit(10);
  Type(1, LineColumn::FirstCounting, "7");
  messages.WillAnswer(FakeMessages::Answer::No);
  Click(Form().cmdCancel);
  EXPECT_EQ(Available(), "undo ");
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Click(Form().cmdCancel);
  EXPECT_EQ(Available(), "");
}

TEST_F(EntryUndo, Opening_another_counting_ends_the_history) {
  ViewAndEdit(10);
  Type(1, LineColumn::FirstCounting, "7");
  control.View(11);
  EXPECT_EQ(Available(), "");
}

TEST_F(EntryUndo, An_emptied_form_has_no_history) {
  ViewAndEdit(10);
  Type(1, LineColumn::FirstCounting, "7");
  control.ClearShow();
  Click(Form().cmdNew);
  EXPECT_EQ(Available(), "");
}

}  // namespace
}  // namespace koru::test
