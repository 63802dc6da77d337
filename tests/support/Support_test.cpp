#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TestDatabase.h"

namespace koru::test {
namespace {

TEST(TemporaryFolder, Is_removed_with_everything_in_it) {
  std::filesystem::path path;
  {
    const TemporaryFolder folder;
    path = folder.Path();
    std::filesystem::create_directories(path / "a" / "b");
  }
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(TestDatabase, Dumps_NULL_texts_and_numbers_apart_and_regardless_of_their_order) {
  TestDatabase database;
  EXPECT_EQ(database.Dump(), "");
  const std::string rows =
      "tblUser: ID=1, FullName='1'\n"
      "tblUser: ID=2, FullName='it''s'\n";
  database.Execute("insert into tblUser (ID, FullName) values (1, '1'), (2, 'it''s')");
  EXPECT_EQ(database.Dump(), rows);
  database.Execute("delete from tblUser; insert into tblUser (ID, FullName) values (2, 'it''s'), (1, '1')");
  EXPECT_EQ(database.Dump(), rows);
  database.Execute("insert into tblInventory (ID, ParentID, Name) values (1, NULL, '')");
  EXPECT_EQ(database.Dump(), "tblInventory: ID=1, ParentID=NULL, Name='', IsDefault=0\n" + rows);
}

TEST(TestDatabase, Reads_fields_and_rows_as_text) {
  TestDatabase database;
  EXPECT_EQ(database.Scalar("select ID from tblInventory"), "none");
  EXPECT_EQ(database.Scalar("select max(ID) from tblInventory"), "NULL");
  database.Execute("insert into tblGood (Barcode,Name,TotalQty) values ('x','',2.5),('y','a;b',NULL)");
  EXPECT_EQ(database.Rows("select Name,TotalQty from tblGood order by Barcode"), "|2.5\na;b|NULL\n");
}

TEST(RecordingDatabase, Writes_down_statements_and_calls_in_their_order_also_when_they_fail) {
  TestDatabase database;
  RecordingConnector recording(database.Connector());
  const auto connection = recording.Connect(database.ConnectionText());
  connection->Open(SqlText("select ID  from tblUser where FullName='x'"));
  EXPECT_EQ(connection->Call("spPelinHasPermission", {1, 806}), 0);
  EXPECT_THROW(connection->Open(SqlText("broken '")), DatabaseError);
  EXPECT_EQ(recording.Statements(), (StatementLog{"select ID  from tblUser where FullName='x'",
                                                  "{? = CALL spPelinHasPermission( 1, 806) }", "broken '"}));
  EXPECT_EQ(recording.ConnectionTexts(), std::vector<std::string>{database.ConnectionText()});
}

TEST(FailingDatabase, Fails_the_nth_statement_alone_before_it_reaches_the_database) {
  TestDatabase database;
  FailingConnector failing(database.Connector());
  const auto connection = failing.Connect(database.ConnectionText());
  failing.Plan().FailAt(2);
  int id = 0;
  for (const bool fails : {false, true, false}) {
    try {
      connection->Open(SqlText("insert into tblUser (ID,FullName) values (") + ++id + ",'x')");
      EXPECT_FALSE(fails);
    } catch (const DatabaseError& error) {
      EXPECT_TRUE(fails);
      EXPECT_EQ(error.Code(), FaultPlan::kCode);
    }
  }
  EXPECT_EQ(failing.Plan().Count(), 3);
  EXPECT_EQ(database.Scalar("select count(*) from tblUser"), "2");
}

TEST(FakeScreen, Records_forms_and_cursors_and_closes_what_the_user_left_open) {
  FakeScreen screen;
  Form form(screen, "frmReport");
  bool seen = false;
  screen.OnModal = [&](Form& shown) { seen = shown.Visible() && shown.Name() == "frmReport"; };
  form.Show(true);
  EXPECT_TRUE(seen);
  EXPECT_FALSE(form.Visible());
  form.Show(false);
  EXPECT_TRUE(form.Visible());
  { const Hourglass hourglass(screen); }
  ASSERT_EQ(screen.Shown().size(), 2U);
  EXPECT_TRUE(screen.Shown()[0].modal);
  EXPECT_FALSE(screen.Shown()[1].modal);
  EXPECT_EQ(screen.Cursors(), (std::vector<Cursor>{Cursor::Hourglass, Cursor::Normal}));
}

TEST(FakeMessages, Records_messages_and_answers_questions_in_turn) {
  ComponentRegistry registry;
  FakeMessages messages;
  messages.RegisterIn(registry);
  messages.WillAnswer(FakeMessages::Answer::Yes);
  messages.WillAnswer(FakeMessages::Answer::No);
  std::vector<int> answers;
  for (const int type : {0, 1, 1, 1}) {
    const auto component = registry.Create(MessageComponent::kClassName);
    auto& message = dynamic_cast<MessageComponent&>(*component);
    message.SetFormTitle("خطا");
    message.SetFormMessage("متن");
    message.SetFormType(type);
    message.ClearShow();
    answers.push_back(message.Resualt());
  }
  EXPECT_EQ(answers, (std::vector<int>{-1, 1, 0, -1}));
  ASSERT_EQ(messages.Shown().size(), 4U);
  EXPECT_EQ(messages.Shown()[0].title, "خطا");
  EXPECT_EQ(messages.Texts()[3], "متن");
}

TEST(FixedClock, Returns_the_date_it_was_set_to) {
  FixedClock clock(Date{std::chrono::year{2024}, std::chrono::month{3}, std::chrono::day{20}});
  EXPECT_EQ(IsoText(clock.Today()), "2024-03-20");
}

}  // namespace
}  // namespace koru::test
