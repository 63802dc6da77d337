#include <gtest/gtest.h>

#include <algorithm>

#include "adapters/sqlite/SqliteConnection.h"
#include "lines/LineColumns.h"
#include "platform/sql/ConnectionText.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using Answer = FakeMessages::Answer;

/// Counting 10 is open on the form, and another station works on the same database.
class OtherStation : public CountingWorld {
 protected:
  explicit OtherStation(TestDatabase::Kind kind = TestDatabase::Kind::FileOrServer) : CountingWorld(kind) {}

  void Edit() {
    ViewAndEdit(10);
    Form().Timer1.Fire();
    NewMessages();
  }
  void DeleteIt() {
    database.Execute(
        "delete from tblInventoryCountingDetail where CountingID=10;"
        "delete from tblInventoryCounting where ID=10");
  }
  void ChangeIt() {
    database.Execute(
        "update tblInventoryCounting set Notes='ديگري',CreatorID=8 where ID=10;"
        "delete from tblInventoryCountingDetail where CountingID=10 and RowNumber=2");
  }
  void RegisterIt() { database.Execute("update tblInventoryCounting set Code=2,CreatorID=8 where ID=10"); }
  void TypeAccepted(const std::string& figure) {
    ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, figure));
  }
  std::string Notes() { return database.Scalar("select Notes from tblInventoryCounting where ID=10"); }
  std::string LinesOf10() {
    return database.Scalar("select count(*) from tblInventoryCountingDetail where CountingID=10");
  }
  std::string OnlyMessage() {
    const Texts texts = NewMessages();
    return texts.size() == 1 ? texts[0] : std::to_string(texts.size()) + " messages";
  }
  void ExpectAsked(const std::string& text, std::initializer_list<const char*> parts) {
    for (const char* part : parts) EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
  }
};

TEST_F(OtherStation, A_counting_that_was_deleted_meanwhile_is_not_saved_and_its_entry_stays) {
  Edit();
  TypeAccepted("7");
  DeleteIt();
  Click(Form().cmdTmpSave);
  ExpectAsked(OnlyMessage(), {"حذف شده است"});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "7");
  EXPECT_EQ(LinesOf10(), "0") << "no line without a counting";
}

TEST_F(OtherStation, A_counting_that_was_deleted_meanwhile_is_not_registered) {
  Edit();
  DeleteIt();
  Click(Form().cmdIsFinalized);
  ExpectAsked(OnlyMessage(), {"حذف شده است"});
  EXPECT_EQ(Form().txtCode.Text(), "");
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryReceipt"), "0");
  EXPECT_EQ(database.Scalar("select count(*) from tblInventoryDispatch"), "0");
}

/// As on a server, where another station deletes the counting after the comparison: the update finds no row.
/// A trigger that skips the update leaves the same.
class UpdateFindsNothing : public OtherStation {
 protected:
  UpdateFindsNothing() : OtherStation(TestDatabase::Kind::File) {}

  void SetUp() override {
    Edit();
    TypeAccepted("7");
    SqliteConnection(ConnectionText::Parse(database.ConnectionText()).Get("Data Source"),
                     SqliteConnection::Mode::Existing, std::chrono::seconds(1))
        .Execute("create trigger Gone before update on tblInventoryCounting begin select raise(ignore); end");
    NewStatements();
  }
  /// The statements sent from the update on.
  Texts FromUpdateOn() {
    Texts statements = NewStatements();
    const auto isUpdate = [](const std::string& text) {
      return text.starts_with("update") || text.starts_with("Update");
    };
    statements.erase(statements.begin(), std::find_if(statements.begin(), statements.end(), isUpdate));
    return statements;
  }
};

TEST_F(UpdateFindsNothing, A_save_sends_nothing_more_and_the_counting_is_still_being_entered) {
  Click(Form().cmdTmpSave);
  EXPECT_EQ(FromUpdateOn().size(), 1U);
  ExpectAsked(OnlyMessage(), {"حذف شده است"});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Form().lblIDVal.Caption(), "10");
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "7");
  EXPECT_EQ(LinesOf10(), "2");
}

TEST_F(UpdateFindsNothing, A_registration_sends_nothing_more_and_leaves_no_number_on_the_form) {
  Click(Form().cmdIsFinalized);
  EXPECT_EQ(FromUpdateOn().size(), 1U);
  ExpectAsked(OnlyMessage(), {"حذف شده است"});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Form().txtCode.Text(), "");
  EXPECT_EQ(LinesOf10(), "2");
}

TEST_F(UpdateFindsNothing, A_return_moves_no_number) {
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdCancel);
  View(11);
  NewMessages();
  NewStatements();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdFunc);
  EXPECT_EQ(FromUpdateOn().size(), 1U);
  EXPECT_EQ(Form().txtCode.Text(), "1");
  ExpectAsked(NewMessages().back(), {"حذف شده است"});
}

TEST_F(OtherStation, What_another_one_has_changed_is_named_and_not_overwritten_without_a_yes) {
  Edit();
  TypeAccepted("7");
  ChangeIt();
  messages.WillAnswer(Answer::No);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdTmpSave);
  const Texts asked = NewMessages();
  ASSERT_EQ(asked.size(), 2U);
  ExpectAsked(asked[0], {"توضيحات", "(1 به جاي 2)", "مريم كاظمي", "آيا روي آن ذخيره شود؟"});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Notes(), "ديگري");
  EXPECT_EQ(LinesOf10(), "1");
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "7");
}

TEST_F(OtherStation, With_a_yes_the_counting_is_saved_over_the_other_ones) {
  Edit();
  TypeAccepted("7");
  ChangeIt();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Notes(), "شمارش 'پاييز'");
  EXPECT_EQ(LinesOf10(), "2");
}

TEST_F(OtherStation, The_stored_counting_takes_the_place_of_the_entry_when_the_user_wants_to_see_it) {
  Edit();
  TypeAccepted("7");
  ChangeIt();
  messages.WillAnswer(Answer::No);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Form().txtNotes.Text(), "ديگري");
  EXPECT_EQ(Form().flexDetail.Rows(), 2);
  EXPECT_EQ(LinesOf10(), "1");
}

TEST_F(OtherStation, A_question_that_is_closed_without_an_answer_overwrites_nothing) {
  Edit();
  ChangeIt();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(messages.Shown().size(), 1U);
  EXPECT_EQ(Notes(), "ديگري");
  EXPECT_EQ(Mode(), DocumentMode::Editing);
}

TEST_F(OtherStation, A_change_that_comes_while_the_question_is_open_is_asked_about_again) {
  Edit();
  ChangeIt();
  messages.WillAnswer(Answer::Yes);
  messages.OnShow = [this](const FakeMessages::Message&) {
    messages.OnShow = nullptr;
    database.Execute("update tblInventoryCounting set ManualCode='B' where ID=10");
  };
  Click(Form().cmdTmpSave);
  const Texts asked = NewMessages();
  ASSERT_EQ(asked.size(), 2U);
  ExpectAsked(asked[1], {"شماره دستي"});
  EXPECT_EQ(Notes(), "ديگري");
}

TEST_F(OtherStation, A_counting_that_has_become_final_is_neither_saved_nor_registered_again) {
  for (const bool registering : {false, true}) {
    Edit();
    RegisterIt();
    Click(registering ? Form().cmdIsFinalized : Form().cmdTmpSave);
    ExpectAsked(OnlyMessage(), {"با شماره 2 ثبت نهايي شده است", "مريم كاظمي"});
    EXPECT_EQ(database.Scalar("select Code from tblInventoryCounting where ID=10"), "2");
    EXPECT_EQ(Mode(), DocumentMode::Editing);
    EXPECT_EQ(Form().txtCode.Text(), "");
    database.Execute("update tblInventoryCounting set Code=null where ID=10");
    messages.WillAnswer(Answer::Yes);
    Click(Form().cmdCancel);
  }
}

TEST_F(OtherStation, Writes_to_other_countings_are_no_reason_to_ask) {
  Edit();
  Form().txtNotes.SetText("چند رديف 'ديگر'");
  ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "7.0123456789"));
  ASSERT_TRUE(Form().flexDetail.UserEdit(2, LineColumn::FirstCounting, ""));
  for (int round = 1; round <= 3; ++round) {
    Form().Timer1.Fire();
    database.Execute("update tblInventoryCounting set Notes='" + std::to_string(round) + "' where ID=12");
    Click(Form().cmdTmpSave);
    EXPECT_EQ(NewMessages(), Texts{}) << round;
    Form().Timer1.Fire();
    database.Execute("update tblInventoryCounting set ManualCode='" + std::to_string(round) +
                     "' where ID=12");
    Click(Form().cmdEdit);
    EXPECT_EQ(NewMessages(), Texts{}) << round;
  }
}

TEST_F(OtherStation, Edit_shows_what_is_stored_now) {
  View(10);
  ChangeIt();
  Click(Form().cmdEdit);
  ExpectAsked(OnlyMessage(), {"تازه خوانده شد", "مريم كاظمي"});
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Form().txtNotes.Text(), "ديگري");
  EXPECT_EQ(Form().flexDetail.Rows(), 2);
}

TEST_F(OtherStation, A_counting_that_another_one_has_registered_is_not_opened_for_changes) {
  View(10);
  RegisterIt();
  Click(Form().cmdEdit);
  const Texts shown = NewMessages();
  ASSERT_EQ(shown.size(), 2U);
  EXPECT_EQ(shown[1], "اين شمارش ثبت نهايي شده است و نميتوان آن را اصلاح نمود.");
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
  EXPECT_EQ(Form().txtCode.Text(), "2");
}

TEST_F(OtherStation, A_counting_that_another_one_has_registered_is_not_deleted) {
  View(10);
  RegisterIt();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDelete);
  const Texts shown = NewMessages();
  ASSERT_EQ(shown.size(), 2U);
  ExpectAsked(shown[1], {"با شماره 2 ثبت نهايي شده است"});
  EXPECT_EQ(LinesOf10(), "2");
  EXPECT_EQ(Mode(), DocumentMode::Viewing);
}

TEST_F(OtherStation, A_changed_counting_is_deleted_with_a_second_yes_only) {
  View(10);
  ChangeIt();
  messages.WillAnswer(Answer::Yes);
  messages.WillAnswer(Answer::No);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdDelete);
  EXPECT_EQ(LinesOf10(), "1");
  messages.WillAnswer(Answer::Yes);
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDelete);
  EXPECT_EQ(LinesOf10(), "0");
  EXPECT_EQ(Mode(), DocumentMode::Empty);
}

TEST_F(OtherStation, A_counting_that_is_deleted_already_leaves_the_form) {
  View(10);
  DeleteIt();
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDelete);
  EXPECT_EQ(NewMessages().size(), 2U);
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
}

/// Countings 11 (number 1), 10 (number 2) and 13 (number 3) are final.
class OtherStationReturns : public OtherStation {
 protected:
  OtherStationReturns() {
    database.Execute(
        "update tblInventoryCounting set Code=2 where ID=10;update tblInventoryCounting set Code=3 where "
        "ID=13");
  }
  std::string Codes() {
    return database.Rows("select ID,Code from tblInventoryCounting where Code is not null order by Code");
  }
  void Return() {
    messages.WillAnswer(Answer::Yes);
    Click(Form().cmdFunc);
  }
};

TEST_F(OtherStationReturns, The_number_that_is_stored_decides_what_moves_up) {
  View(10);
  database.Execute(
      "update tblInventoryCounting set Code=null where ID=11;"
      "update tblInventoryCounting set Code=Code-1 where Code>1");
  Return();
  EXPECT_EQ(Codes(), "13|1\n");
}

TEST_F(OtherStationReturns, What_another_one_has_returned_moves_no_other_number) {
  View(10);
  database.Execute(
      "update tblInventoryCounting set Code=null where ID=10;"
      "update tblInventoryCounting set Code=Code-1 where Code>2");
  Return();
  const Texts shown = NewMessages();
  ASSERT_EQ(shown.size(), 2U);
  ExpectAsked(shown[1], {"2", "برداشته شد"});
  EXPECT_EQ(Codes(), "11|1\n13|2\n");
  EXPECT_EQ(Form().txtCode.Text(), "");
}

TEST_F(OtherStationReturns, What_another_one_has_returned_and_changed_is_not_deleted_without_a_second_yes) {
  View(10);
  database.Execute("update tblInventoryCounting set Code=null where ID=10");
  ChangeIt();
  Return();
  Form().Timer1.Fire();
  messages.WillAnswer(Answer::Yes);
  messages.WillAnswer(Answer::No);
  messages.WillAnswer(Answer::No);
  Click(Form().cmdDelete);
  EXPECT_EQ(LinesOf10(), "1");
}

TEST_F(OtherStationReturns, A_number_that_was_never_stored_is_removed_without_moving_others) {
  database.Execute("update tblInventoryCounting set Code=null where ID in (10,13)");
  ViewAndEdit(10);
  Form().Timer1.Fire();
  NewStatements();
  failing.Plan().FailAt(6);  // the lines are stored, the number is not
  Click(Form().cmdIsFinalized);
  failing.Plan().FailAt(0);
  ASSERT_EQ(Form().txtCode.Text(), "2");
  ASSERT_EQ(database.Scalar("select count(*) from tblInventoryCounting where Code=2"), "0");
  database.Execute(
      "update tblInventoryCounting set Code=2 where ID=12;update tblInventoryCounting set Code=3 where "
      "ID=13");
  Form().Timer1.Fire();
  NewMessages();
  Return();
  EXPECT_EQ(Codes(), "11|1\n12|2\n13|3\n");
  ExpectAsked(NewMessages().back(), {"2", "برداشته شد"});
}

TEST_F(OtherStationReturns, A_counting_that_is_gone_is_not_returned) {
  View(10);
  DeleteIt();
  database.Execute("update tblInventoryCounting set Code=2 where ID=13");
  Return();
  ExpectAsked(NewMessages().back(), {"حذف شده است"});
  EXPECT_EQ(Codes(), "11|1\n13|2\n");
}

/// A form that shows a barcode which a statement cannot carry.
class UnwritableTexts : public CountingWorld {};

TEST_F(UnwritableTexts, A_barcode_with_an_apostrophe_loses_no_stored_line) {
  database.Execute(
      "insert into tblGood (Barcode,Code,Name) values ('G''9','109','نبات');"
      "insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,AcceptedCounting) values "
      "(10,'G''9',3,1,5)");
  ViewAndEdit(10);
  Form().Timer1.Fire();
  for (Button* command : {&Form().cmdTmpSave, &Form().cmdIsFinalized}) {
    NewMessages();
    Click(*command);
    const Texts shown = NewMessages();
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_NE(shown[0].find("رديف 3"), std::string::npos) << shown[0];
    EXPECT_NE(shown[0].find("كد ميله\u200cاي"), std::string::npos) << shown[0];
    EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCountingDetail where CountingID=10"), "3");
    EXPECT_EQ(Mode(), DocumentMode::Editing);
    EXPECT_EQ(Form().txtCode.Text(), "");
  }
}

}  // namespace
}  // namespace koru::test
