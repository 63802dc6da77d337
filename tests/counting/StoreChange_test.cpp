#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using StoreChangeTest = CountingWorld;
using Answer = FakeMessages::Answer;
constexpr const char* kNotAllowed = "كاربر انتخاب شده در اين انبار مجاز به كار نميباشد.";
constexpr const char* kHasChildren = "انبار انتخاب شده فرزند دارد.";
constexpr const char* kRebuild = "تغيير انبار به بازسازي مجدد منجر مي شود. آيا ادامه مي دهيد؟";

TEST_F(StoreChangeTest, A_user_cannot_keep_a_store_in_which_he_may_not_work) {
  ViewAndEdit(12);
  NewStatements();
  Form().gmpInventory.UserSelect(3);
  EXPECT_EQ(NewMessages(), Texts{kNotAllowed});
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());
  EXPECT_EQ(NewStatements(), Texts{"Select * From tblInventoryUser Where UserID=7 and InventoryID=3"});
}

TEST_F(StoreChangeTest, A_store_that_could_not_be_tested_is_not_kept) {
  for (int n = 1; n <= 2; ++n) {
    ViewAndEdit(12);
    Form().gmpInventory.ClearSelection();
    failing.Plan().FailAt(n);
    Form().gmpInventory.UserSelect(1);
    failing.Plan().FailAt(0);
    EXPECT_EQ(NewMessages().size(), 1U) << n;
    EXPECT_TRUE(Form().gmpInventory.NothingSelected()) << n;
  }
}

TEST_F(StoreChangeTest, A_store_with_children_gives_way_to_the_default_store) {
  ViewAndEdit(12);
  NewStatements();
  Form().gmpInventory.UserSelect(1);
  EXPECT_EQ(NewMessages(), Texts{kHasChildren});
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 2);
  EXPECT_EQ(NewStatements(), (Texts{"Select * From tblInventoryUser Where UserID=7 and InventoryID=1",
                                    "Select * from tblInventory where ParentID=1",
                                    "Select * From tblInventoryUser Where UserID=7 and InventoryID=2"}));
}

TEST_F(StoreChangeTest, Without_a_default_store_a_store_with_children_leaves_the_selector_empty) {
  database.Execute("update tblInventory set IsDefault=0");
  ViewAndEdit(12);
  Form().gmpInventory.UserSelect(1);
  EXPECT_EQ(NewMessages(), Texts{kHasChildren});
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());
}

TEST_F(StoreChangeTest, The_default_store_is_not_tested_for_children) {
  database.Execute("update tblInventory set IsDefault=case when ID=1 then 1 else 0 end");
  control.ClearShow();
  Click(Form().cmdNew);
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 1);
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(StoreChangeTest, In_viewing_mode_the_child_test_does_not_run) {
  View(12);
  Form().gmpInventory.SetEnabled(true);
  NewStatements();
  Form().gmpInventory.UserSelect(1);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 1);
  EXPECT_EQ(NewStatements(), Texts{"Select * From tblInventoryUser Where UserID=7 and InventoryID=1"});
}

TEST_F(StoreChangeTest, Lines_are_put_under_another_store_only_after_a_question) {
  database.Execute("insert into tblInventoryUser (UserID,InventoryID) values (7,3)");
  ViewAndEdit(10);
  messages.WillAnswer(Answer::No);
  Form().gmpInventory.UserSelect(3);
  EXPECT_EQ(messages.Shown().at(0).title, "نياز به بازسازي");
  EXPECT_EQ(NewMessages(), Texts{kRebuild});
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());

  messages.WillAnswer(Answer::Yes);
  Form().gmpInventory.UserSelect(3);
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 3);
  EXPECT_EQ(Form().flexDetail.Rows(), 3);
}

TEST_F(StoreChangeTest, A_taken_back_choice_asks_about_the_lines_once) {
  ViewAndEdit(10);
  messages.WillAnswer(Answer::Yes);
  Form().gmpInventory.UserSelect(1);
  EXPECT_EQ(NewMessages(), (Texts{kHasChildren, kRebuild}));
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 2);
}

TEST_F(StoreChangeTest, Emptying_the_store_asks_nothing) {
  ViewAndEdit(10);
  NewStatements();
  Form().gmpInventory.UserSelect(Selector::kNothing);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(NewStatements(), Texts{});
}

TEST_F(StoreChangeTest, A_form_without_a_signed_in_user_does_not_test_the_user) {
  control.SetUserID(0);
  database.Execute("insert into tblPelinUserPermission (UserID,FormPermissionID) values (0,80602)");
  ViewAndEdit(12);
  Form().gmpInventory.UserSelect(3);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 3);
}

}  // namespace
}  // namespace koru::test
