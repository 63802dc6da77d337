#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>

#include "lines/LineColumns.h"
#include "lines/frmMovedStock.h"
#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using std::chrono::minutes;

/// What the form says of the age of its book stock, and the check of stock that has moved since.
class StockCheckTest : public CountingWorld {
 protected:
  void Calculate() {
    ViewAndEdit(10);
    Click(Form().cmdCalc);
  }
  /// A registered receipt of a good into the store of the counting.
  void Receive(int id, const std::string& good, int quantity) {
    const std::string key = std::to_string(id);
    database.Execute(
        "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate,FarsiReceiveDate) values (" + key +
        "," + key + ",2,'2025-06-01','1404/03/11')");
    database.Execute("insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (" + key +
                     ",'" + good + "'," + std::to_string(quantity) + ",5)");
  }
  /// Runs the check; `use` is the user's part in the list.
  void Check(const std::function<void(frmMovedStock&)>& use) {
    screen.OnModal = [&use](koru::Form& shown) { use(dynamic_cast<frmMovedStock&>(shown)); };
    Form().Timer1.Fire();
    ASSERT_TRUE(Form().mnuMovedStock.UserClick());
  }
  std::string Age() {
    Form().Timer1.Fire();
    return Form().lblFiguresAge.Caption();
  }
};

TEST_F(StockCheckTest, The_age_of_the_book_stock_grows_from_its_calculation) {
  Calculate();
  EXPECT_EQ(Age(), "محاسبه موجودي: هم‌اكنون");
  clock.Pass(minutes(59));
  EXPECT_EQ(Age(), "محاسبه موجودي: 59 دقيقه پيش");
  clock.Pass(minutes(121));
  EXPECT_EQ(Age(), "محاسبه موجودي: 3 ساعت پيش");
  clock.Pass(minutes(48 * 60));
  EXPECT_EQ(Age(), "محاسبه موجودي: 2 روز پيش");
  clock.Pass(minutes(-100 * 60));
  EXPECT_EQ(Age(), "محاسبه موجودي: هم‌اكنون") << "the machine's clock was set back";
}

TEST_F(StockCheckTest, The_time_of_a_stored_countings_figures_is_not_known) {
  Calculate();
  EXPECT_EQ(Age(), "محاسبه موجودي: هم‌اكنون");
  ViewAndEdit(10);
  EXPECT_EQ(Age(), "محاسبه موجودي: زمان نامعلوم");
}

TEST_F(StockCheckTest, A_counting_that_is_not_entered_and_one_without_lines_have_no_age) {
  View(10);
  EXPECT_EQ(Age(), "");
  ViewAndEdit(12);
  EXPECT_EQ(Age(), "");
}

TEST_F(StockCheckTest, The_age_is_kept_by_a_save_and_the_next_edit) {
  Calculate();
  clock.Pass(minutes(5));
  Form().Timer1.Fire();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(Age(), "");
  Click(Form().cmdEdit);
  EXPECT_EQ(Age(), "محاسبه موجودي: 5 دقيقه پيش");
}

TEST_F(StockCheckTest, Goods_added_to_an_empty_counting_begin_the_age_and_later_ones_do_not_renew_it) {
  control.ClearShow();
  Click(Form().cmdNew);
  const auto add = [this](const char* barcode) {
    Form().OfferScanned(barcode);
    Click(Form().cmdAddScanned);
  };
  add("G1");
  EXPECT_EQ(Age(), "محاسبه موجودي: هم‌اكنون");
  clock.Pass(minutes(30));
  add("G2");
  EXPECT_EQ(Age(), "محاسبه موجودي: 30 دقيقه پيش");
}

TEST_F(StockCheckTest, When_nothing_has_moved_a_message_says_since_when_and_the_figures_count_as_new) {
  Calculate();
  clock.Pass(minutes(120));
  Check([](frmMovedStock&) { ADD_FAILURE() << "there is nothing to show"; });
  EXPECT_EQ(
      NewTitledMessages(),
      Texts{"بررسي تغيير موجودي: موجودي دفتري هيچ سطري از زمان محاسبه (2 ساعت پيش) تاكنون تغيير نكرده است."});
  EXPECT_EQ(Age(), "محاسبه موجودي: هم‌اكنون");
}

TEST_F(StockCheckTest, All_that_is_taken_is_reported_and_renews_the_age) {
  Calculate();
  Receive(1, "G1", 6);
  Receive(2, "G2", 7);
  clock.Pass(minutes(120));
  std::string said;
  const Subscription listen =
      Form().CommandReported.Subscribe([&said](const std::string& text) { said = text; });
  Check([](frmMovedStock& list) { list.cmdTakeAll.UserClick(); });
  EXPECT_EQ(said, "موجودي تازه 2 سطر از 2 سطر تغييركرده گرفته شد.");
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "6");
  EXPECT_EQ(Cell(1, LineColumn::Surplus), "4");
  EXPECT_EQ(Cell(2, LineColumn::SystemCounting), "7");
  EXPECT_EQ(Cell(2, LineColumn::Shortage), "3");
  EXPECT_EQ(Age(), "محاسبه موجودي: هم‌اكنون");
}

TEST_F(StockCheckTest, A_part_that_is_taken_changes_those_lines_alone_and_the_age_stays) {
  Calculate();
  Receive(1, "G1", 6);
  Receive(2, "G2", 7);
  clock.Pass(minutes(120));
  Check([](frmMovedStock& list) {
    list.flexMoved.UserClick(2, MovedColumn::Mark);
    list.cmdTakeMarked.UserClick();
  });
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "0");
  EXPECT_EQ(Cell(2, LineColumn::SystemCounting), "7");
  EXPECT_EQ(Age(), "محاسبه موجودي: 2 ساعت پيش");
}

TEST_F(StockCheckTest, None_is_taken_where_the_list_is_closed) {
  Calculate();
  Receive(1, "G1", 6);
  Check([](frmMovedStock&) {});
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "0");
}

TEST_F(StockCheckTest, A_viewed_counting_can_be_looked_at_and_stays_as_it_is) {
  View(10);
  bool looked = false;
  Check([&looked](frmMovedStock& list) {
    looked = true;
    EXPECT_FALSE(list.cmdTakeAll.UserClick());
  });
  EXPECT_TRUE(looked);
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "12.5");
  EXPECT_TRUE(Form().LinesAreStored());
}

TEST_F(StockCheckTest, After_another_store_was_chosen_taking_all_settles_the_question_before_a_save) {
  database.Execute(
      "insert into tblInventory (ID,ParentID,Name,IsDefault) values (4,1,'انبار غرب',0);"
      "insert into tblInventoryUser (UserID,InventoryID) values (7,4)");
  Calculate();
  Receive(1, "G1", 6);
  Click(Form().cmdCalc);
  messages.WillAnswer(FakeMessages::Answer::Yes);
  Form().gmpInventory.UserSelect(4);
  NewMessages();
  Check([](frmMovedStock& list) { list.cmdTakeAll.UserClick(); });
  EXPECT_EQ(Cell(1, LineColumn::SystemCounting), "0");
  Form().Timer1.Fire();
  Click(Form().cmdTmpSave);
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(StockCheckTest, It_is_available_where_there_are_lines_and_a_store) {
  control.ClearShow();
  Form().Timer1.Fire();
  EXPECT_FALSE(Form().mnuMovedStock.Enabled());
  View(12);
  EXPECT_FALSE(Form().mnuMovedStock.Enabled());
  View(11);
  EXPECT_TRUE(Form().mnuMovedStock.Enabled());
}

}  // namespace
}  // namespace koru::test
