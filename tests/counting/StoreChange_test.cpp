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

constexpr const char* kFiguresOfOtherStore =
    "انبار تغيير كرده است، ولي موجودي و مغايرت سطرها هنوز از انبار قبلي است. براي انبار جديد «محاسبه» را "
    "بزنيد.\n"
    "آيا با همين ارقام ذخيره شود؟";

/// Counting 10 with its two lines, put under store 3; its lines still hold the book stock of store 2.
class FiguresOfAnotherStore : public CountingWorld {
 protected:
  FiguresOfAnotherStore() {
    database.Execute("insert into tblInventoryUser (UserID,InventoryID) values (7,3)");
    ViewAndEdit(10);
    messages.WillAnswer(Answer::Yes);
    Form().gmpInventory.UserSelect(3);
    Form().Timer1.Fire();
    (void)NewMessages();
  }
  [[nodiscard]] std::string StoredStore() {
    return database.Scalar("select InventoryID from tblInventoryCounting where ID=10");
  }
};

TEST_F(FiguresOfAnotherStore, Are_neither_saved_nor_registered_when_the_user_says_no) {
  for (Button* const command : {&Form().cmdTmpSave, &Form().cmdIsFinalized}) {
    messages.WillAnswer(Answer::No);
    Click(*command);
    EXPECT_EQ(NewMessages(), Texts{kFiguresOfOtherStore}) << command->Name();
    EXPECT_EQ(Mode(), DocumentMode::Editing);
    EXPECT_EQ(StoredStore(), "2");
  }
}

TEST_F(FiguresOfAnotherStore, Are_saved_when_the_user_says_yes) {
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{kFiguresOfOtherStore});
  EXPECT_EQ(StoredStore(), "3");
}

TEST_F(FiguresOfAnotherStore, Are_no_longer_there_after_a_calculation) {
  Click(Form().cmdCalc);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
  EXPECT_EQ(StoredStore(), "3");
}

TEST_F(FiguresOfAnotherStore, Are_no_longer_there_when_the_first_store_is_chosen_again) {
  messages.WillAnswer(Answer::Yes);
  Form().gmpInventory.UserSelect(2);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{kRebuild});
  EXPECT_EQ(StoredStore(), "2");
}

TEST_F(FiguresOfAnotherStore, Are_no_longer_there_without_lines) {
  messages.WillAnswer(Answer::Yes);
  Click(Form().cmdDeleteAll);
  (void)NewMessages();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(StoreChangeTest, A_new_counting_whose_store_is_chosen_before_its_goods_is_saved_without_a_question) {
  database.Execute("insert into tblInventoryUser (UserID,InventoryID) values (7,3)");
  control.ClearShow();
  Click(Form().cmdNew);
  Form().gmpInventory.UserSelect(3);
  screen.OnModal = [](koru::Form& form) {
    auto& search = dynamic_cast<frmGoodSearch&>(form);
    search.gmpInventory.UserSelect(Selector::kNothing);
    search.cmdSearch.UserClick();
  };
  Click(Form().cmdGoods);
  ASSERT_EQ(Form().flexDetail.Rows(), 4);
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
}

}  // namespace
}  // namespace koru::test
