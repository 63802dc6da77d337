#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using Delete = CountingWorld;
using Answer = FakeMessages::Answer;

TEST_F(Delete, A_temporary_counting_is_deleted_lines_first) {
  View(10);
  NewStatements();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDelete);
  EXPECT_EQ(messages.Shown().at(0).title, "حذف شمارش");
  EXPECT_EQ(NewMessages(), Texts{"آيا مطمئن هستيد؟"});
  EXPECT_EQ(NewStatements(), (Texts{"{? = CALL spPelinHasPermission( 7, 80603) }",
                                    "delete tblInventoryCountingDetail where CountingID=10",
                                    "delete tblInventoryCounting where id=10"}));
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCountingDetail where CountingID=10"), "0");
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCounting where ID=10"), "0");
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCountingDetail"), "1") << "of the others";
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
  EXPECT_EQ(Form().flexDetail.Rows(), 1);
}

TEST_F(Delete, Any_answer_but_yes_deletes_nothing) {
  View(10);
  const std::string before = database.Dump();
  for (const Answer answer : {Answer::No, Answer::None}) {
    messages.WillAnswer(answer);
    Click(Form().cmdDelete);
    EXPECT_EQ(Mode(), DocumentMode::Viewing);
  }
  EXPECT_EQ(database.Dump(), before);
}

TEST_F(Delete, A_final_counting_is_refused_before_the_question_is_asked) {
  control.View(11);
  Form().cmdDelete.SetEnabled(true);
  const std::string before = database.Dump();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDelete);
  EXPECT_EQ(NewMessages(), Texts{"اين شمارش ثبت نهايي شده است و نميتوان آن را ابطال نمود."});
  EXPECT_EQ(messages.UnusedAnswers(), 1U);
  EXPECT_EQ(database.Dump(), before);
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
}

TEST_F(Delete, A_failure_between_lines_and_header_keeps_what_was_done_and_a_second_try_completes) {
  View(10);
  messages.WillAnswer(Answer::Yes);
  failing.Plan().FailAt(3 + LooksForChangesFirst());
  Click(Form().cmdDelete);
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCountingDetail where CountingID=10"), "0");
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCounting where ID=10"), "1");
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDelete);
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCounting where ID=10"), "0");
}

TEST_F(Delete, All_lines_go_from_the_grid_and_stay_in_the_database) {
  ViewAndEdit(10);
  messages.WillAnswer(Answer::Yes);
  NewStatements();
  Click(Form().cmdDeleteAll);
  EXPECT_EQ(messages.Shown().at(0).title, "هشدار");
  EXPECT_EQ(NewMessages(), Texts{"آيا تمامي كالاها و شمارشهاي وارد شده حذف شوند؟"});
  EXPECT_EQ(Form().flexDetail.Rows(), 1);
  EXPECT_EQ(Form().txtTotalValue.Text(), "0");
  EXPECT_EQ(NewStatements(), Texts{});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
}

TEST_F(Delete, All_lines_stay_on_any_answer_but_yes) {
  ViewAndEdit(10);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdDeleteAll);
  EXPECT_EQ(Form().flexDetail.Rows(), 3);
}

TEST_F(Delete, Delete_all_on_a_grid_with_only_its_header_asks_nothing) {
  ViewAndEdit(12);
  Click(Form().cmdDeleteAll);
  EXPECT_EQ(NewMessages(), Texts{});
}

}  // namespace
}  // namespace koru::test
