#include <gtest/gtest.h>

#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"
#include "tests/counting/HostedDocument.h"

namespace koru::test {
namespace {

using StartUp = CountingWorld;

TEST_F(StartUp, Reads_the_stores_and_the_creator) {
  control.View(12);
  EXPECT_FALSE(Form().pgbStatus.Visible());
  EXPECT_EQ(Form().gmpInventory.Caption(), "انبارها");
  EXPECT_EQ(Form().gmpInventory.Table(), "tblInventory");
  EXPECT_EQ(Form().gmpInventory.ParentTable(), "tblInventoryParent");
  Form().Initialize();
  EXPECT_EQ(Form().txtCreator.Text(), "علي رضايي");
}

TEST_F(StartUp, Sets_the_grid_up_with_17_columns_of_which_five_are_typed_into) {
  control.View(12);
  EXPECT_EQ(Form().flexDetail.Cols(), 17);
  std::string editable;
  for (int col = 0; col < 17; ++col) editable += Form().flexDetail.IsEditable(col) ? '1' : '0';
  EXPECT_EQ(editable, "00000011110001000");
  EXPECT_EQ(Cell(0, LineColumn::Barcode), "  کد ميله\u200Cاي            ");
  EXPECT_EQ(Cell(0, LineColumn::AcceptedCounting), "شمارش مورد قبول  \u00A0");
  EXPECT_EQ(Cell(0, LineColumn::CountedAmount), " مبلغ موجودي شمارش شده");
}

TEST_F(StartUp, Without_a_default_store_New_leaves_the_store_empty) {
  database.Execute("update tblInventory set IsDefault=0");
  control.ClearShow();
  Click(Form().cmdNew);
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());
  EXPECT_EQ(Form().Focus(), &Form().gmpInventory);
}

TEST_F(StartUp, A_user_that_the_suite_does_not_know_has_no_name) {
  control.SetUserID(4711);
  control.View(12);
  Form().Initialize();
  EXPECT_EQ(Form().txtCreator.Text(), "");
}

TEST_F(StartUp, Clear_leaves_only_the_header_row_and_empty_boxes) {
  View(10);
  Form().Clear();
  EXPECT_EQ(Form().flexDetail.Rows(), 1);
  for (const TextBox* box : {&Form().txtCode, &Form().txtGNO, &Form().txtNotes, &Form().txtCreator,
                             &Form().txtTotalAboveValue, &Form().txtTotalBelowValue, &Form().txtTotalValue}) {
    EXPECT_EQ(box->Text(), "") << box->Name();
  }
  EXPECT_EQ(Form().lblIDVal.Caption(), "");
  for (const Selector* selector :
       {static_cast<Selector*>(&Form().mptCounter1), static_cast<Selector*>(&Form().mptCounter2),
        static_cast<Selector*>(&Form().mptCounter3), static_cast<Selector*>(&Form().mptConfirmer),
        static_cast<Selector*>(&Form().gmpInventory)}) {
    EXPECT_TRUE(selector->NothingSelected()) << selector->Name();
  }
  EXPECT_TRUE(Form().gdpCreateDate.IsEmpty());
  EXPECT_TRUE(Form().gdpFromDate.IsEmpty());
  EXPECT_TRUE(Form().gdpToDate.IsEmpty());
  EXPECT_EQ(Mode(), DocumentMode::Viewing) << "the mode is its callers' to change";
}

TEST_F(StartUp, Activation_gives_the_focus_to_Edit_or_New) {
  View(10);
  EXPECT_EQ(Form().Focus(), &Form().cmdEdit);
  control.ClearShow();
  EXPECT_EQ(Form().Focus(), &Form().cmdNew);
}

TEST_F(StartUp, A_disabled_button_is_skipped_by_the_activation) {
  ViewAndEdit(10);
  Form().SetFocus(Form().txtGNO);
  Form().Activate();
  EXPECT_EQ(Form().Focus(), &Form().txtGNO);
}

TEST_F(StartUp, Unloading_releases_the_connection_and_the_next_use_opens_a_fresh_one) {
  View(10);
  EXPECT_EQ(recording.ConnectionTexts().size(), 1U);
  Click(Form().cmdExit);
  EXPECT_EQ(control.CountingForm(), nullptr);
  View(10);
  EXPECT_EQ(recording.ConnectionTexts().size(), 2U);
}

TEST_F(StartUp, The_linked_documents_get_the_connection_and_the_user) {
  Texts dispatch;
  Texts receipt;
  components.Register("comInventoryExit.comInvExit",
                      [&] { return std::make_unique<HostedDocument>(dispatch); });
  components.Register("comInventoryReceipt.comInvReceipt",
                      [&] { return std::make_unique<HostedDocument>(receipt); });
  control.View(10);
  const Texts expected = {"connection " + database.ConnectionText(), "user 7"};
  EXPECT_EQ(dispatch, expected);
  EXPECT_EQ(receipt, expected);
}

}  // namespace
}  // namespace koru::test
