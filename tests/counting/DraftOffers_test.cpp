#include <gtest/gtest.h>

#include "platform/sql/ConnectionText.h"
#include "tests/counting/DraftsTest.h"

namespace koru::test {
namespace {

using Answer = FakeMessages::Answer;

/// What becomes of a draft at the next start.
using DraftOffers = Drafts;

TEST_F(DraftOffers, Are_offered_to_their_user_on_their_database_alone) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  program_->SetUserID(8);
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
  program_->SetUserID(7);
  program_->SetOLEConnectionString("Provider=SQLite;Data Source=/other.koru");
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
  program_->SetOLEConnectionString("0");
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
  program_->SetOLEConnectionString(database.ConnectionText());
  EXPECT_TRUE(program_->FindDraft());
}

TEST_F(DraftOffers, Under_the_name_of_another_user_are_not_offered_either) {
  Edit(10);
  Type("7");
  Pause();
  program_.reset();
  const std::string text =
      store_.FindLeft({ConnectionText::Parse(database.ConnectionText()).WithoutPassword(), 7})->Read();
  store_.Begin({ConnectionText::Parse(database.ConnectionText()).WithoutPassword(), 8})->Write(text);
  Start();
  program_->SetUserID(8);
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
}

TEST_F(DraftOffers, Of_a_program_that_still_runs_are_not_offered) {
  Edit(10);
  Type("7");
  Pause();
  const auto running = std::move(program_);
  Start();
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
}

TEST_F(DraftOffers, Can_be_left_for_later_or_discarded_after_a_question) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  ASSERT_TRUE(program_->FindDraft());
  program_->LeaveDraft();
  ASSERT_TRUE(program_->FindDraft());
  messages.WillAnswer(Answer::No);
  EXPECT_FALSE(program_->DiscardDraft());
  EXPECT_EQ(NewMessages(),
            Texts{"پيش\u200cنويس دور ريخته مي\u200cشود و ديگر بازنمي\u200cگردد. آيا مطمئن هستيد؟"});
  EXPECT_EQ(Files(), 1U);
  messages.WillAnswer(Answer::Yes);
  EXPECT_TRUE(program_->DiscardDraft());
  EXPECT_EQ(Files(), 0U);
  EXPECT_EQ(program_->FindDraft(), std::nullopt);
}

TEST_F(DraftOffers, Are_refused_to_a_user_without_the_right_and_stay) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  database.Execute("delete from tblPelinUserPermission where FormPermissionID=80602");
  ASSERT_TRUE(program_->FindDraft());
  EXPECT_FALSE(program_->RestoreDraft());
  EXPECT_EQ(NewMessages(), Texts{kNotPermitted});
  EXPECT_EQ(Files(), 1U);
  database.Execute("insert into tblPelinUserPermission (UserID,FormPermissionID) values (7,80602)");
  EXPECT_TRUE(program_->RestoreDraft());
}

TEST_F(DraftOffers, Are_saved_without_a_question_when_nobody_has_changed_the_stored_counting) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  Click(Counting().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(database.Scalar("select AcceptedCounting from tblInventoryCountingDetail where CountingID=10 and "
                            "RowNumber=1"),
            "7");
}

TEST_F(DraftOffers, Ask_when_another_station_has_changed_the_stored_counting_since_it_was_opened) {
  Edit(10);
  Type("7");
  Pause();
  program_.reset();
  database.Execute("update tblInventoryCounting set Notes='ديگري',CreatorID=8 where ID=10");
  Start();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  messages.WillAnswer(Answer::No);
  messages.WillAnswer(Answer::No);
  Click(Counting().cmdTmpSave);
  const Texts asked = NewMessages();
  ASSERT_EQ(asked.size(), 2U);
  EXPECT_NE(asked[0].find("تفاوت: توضيحات"), std::string::npos) << asked[0];
  EXPECT_EQ(database.Scalar("select Notes from tblInventoryCounting where ID=10"), "ديگري");
  EXPECT_EQ(Mode(), DocumentMode::Editing);
}

TEST_F(DraftOffers, Of_a_deleted_counting_come_back_and_are_not_stored) {
  Edit(10);
  Type("7");
  Pause();
  program_.reset();
  database.Execute(
      "delete from tblInventoryCountingDetail where CountingID=10;"
      "delete from tblInventoryCounting where ID=10");
  Start();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  Click(Counting().cmdTmpSave);
  EXPECT_EQ(NewMessages().size(), 1U);
  EXPECT_EQ(Mode(), DocumentMode::Editing) << "what was typed is still on the form";
}

TEST_F(DraftOffers, Stay_through_a_second_crash_after_they_came_back) {
  Edit(10);
  Type("7");
  Pause();
  Crash();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  const std::string before = Shown();
  Crash();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  EXPECT_EQ(Shown(), before);
}

}  // namespace
}  // namespace koru::test
