#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using Answer = FakeMessages::Answer;

/// A form that shows counting 10, whose host then sets another connection text. It leads to the same data, so
/// that what the form keeps is what it was loaded with.
class ChangedConnection : public CountingWorld {
 protected:
  void ChangeConnection() { control.SetOLEConnectionString(database.ConnectionText() + ";"); }
};

TEST_F(ChangedConnection, A_counting_that_the_other_database_lacks_leaves_nothing_of_the_first_on_the_form) {
  View(10);
  ChangeConnection();
  EXPECT_FALSE(control.View(99));
  ASSERT_NE(control.CountingForm(), nullptr);
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
  EXPECT_EQ(Form().flexDetail.Rows(), 1);
  EXPECT_FALSE(Form().Visible());
}

TEST_F(ChangedConnection, The_default_store_is_that_of_the_other_database) {
  View(10);
  database.Execute(
      "update tblInventory set IsDefault=0 where ID=2;update tblInventory set IsDefault=1 where ID=3;"
      "insert into tblInventoryUser (UserID,InventoryID) values (7,3)");
  ChangeConnection();
  control.ClearShow();
  Form().Timer1.Fire();
  Click(Form().cmdNew);
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 3);
}

/// The commands of a form that has just been opened, before its timer has ticked.
class BeforeTheFirstTick : public CountingWorld {};

TEST_F(BeforeTheFirstTick, A_viewed_counting_can_be_neither_saved_nor_registered) {
  ASSERT_TRUE(control.View(10));
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick());
  EXPECT_FALSE(Form().cmdTmpSave.UserClick());
  EXPECT_EQ(Form().txtCode.Text(), "");
}

TEST_F(BeforeTheFirstTick, An_empty_form_can_be_neither_saved_nor_registered) {
  control.ClearShow();
  EXPECT_FALSE(Form().cmdIsFinalized.UserClick());
  EXPECT_FALSE(Form().cmdTmpSave.UserClick());
}

/// The database does not answer while a stored counting is being edited.
class DatabaseAway : public CountingWorld {
 protected:
  void CancelWithoutDatabase() {
    ViewAndEdit(10);
    ASSERT_TRUE(Form().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "7"));
    failing.Plan().FailAt(1);
    Click(Form().cmdCancel);
    failing.Plan().FailAt(0);
  }
};

TEST_F(DatabaseAway, A_stored_counting_in_Edit_can_be_left_without_saving) {
  messages.WillAnswer(Answer::Yes);
  messages.WillAnswer(Answer::Yes);
  CancelWithoutDatabase();
  EXPECT_NE(NewMessages().back().find("بدون ذخيره"), std::string::npos);
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
  Form().UserClose();
  EXPECT_EQ(control.CountingForm(), nullptr);
}

TEST_F(DatabaseAway, Without_a_yes_the_entry_stays) {
  messages.WillAnswer(Answer::Yes);
  messages.WillAnswer(Answer::No);
  CancelWithoutDatabase();
  EXPECT_EQ(Mode(), DocumentMode::Editing);
  EXPECT_EQ(Cell(1, LineColumn::AcceptedCounting), "7");
}

}  // namespace
}  // namespace koru::test
