#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/counting/CountingWorld.h"

namespace koru::test {
namespace {

using Loading = CountingWorld;
using namespace std::chrono;

/// Dates that the server's tables cannot hold.
class LoadingFromFile : public CountingWorld {
 public:
  LoadingFromFile() : CountingWorld(TestDatabase::Kind::File) {}
};

TEST_F(Loading, The_header_of_a_stored_counting_is_shown) {
  View(10);
  EXPECT_EQ(Form().lblIDVal.Caption(), "10");
  EXPECT_EQ(Form().txtGNO.Text(), "A-10");
  EXPECT_EQ(Form().txtCode.Text(), "");
  EXPECT_EQ(Form().gdpReceiveDate.Value(), 2025y / 12 / 20);
  EXPECT_EQ(Form().gdpFromDate.PersianText(), "1404/01/01");
  EXPECT_EQ(Form().gdpToDate.PersianText(), "1404/09/30");
  EXPECT_EQ(Form().mptCounter1.SelectedID(), 7);
  EXPECT_EQ(Form().mptCounter2.SelectedID(), 8);
  EXPECT_EQ(Form().mptCounter3.SelectedID(), 7);
  EXPECT_EQ(Form().mptConfirmer.SelectedID(), 8);
  EXPECT_EQ(Form().txtNotes.Text(), "شمارش 'پاييز'");
  EXPECT_EQ(Form().txtCreator.Text(), "علي رضايي");
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 2);
}

TEST_F(Loading, The_lines_are_shown_with_shortage_and_surplus_apart) {
  View(10);
  ASSERT_EQ(Form().flexDetail.Rows(), 3);
  EXPECT_EQ(Cell(1, 11), "2.5");
  EXPECT_EQ(Cell(1, 12), "");
  EXPECT_EQ(Cell(1, 14), "7.5");
  EXPECT_EQ(Cell(1, 16), "30");
  EXPECT_EQ(Cell(2, 5), "-1");
  EXPECT_EQ(Cell(2, 12), "3");
  EXPECT_EQ(Cell(2, 13), "3") << "2.5 rounded by the database";
  EXPECT_EQ(Form().txtTotalBelowValue.Text(), "8") << "7.5 to even";
  EXPECT_EQ(Form().txtTotalAboveValue.Text(), "9");
  EXPECT_EQ(Form().txtTotalValue.Text(), "42");
}

TEST_F(Loading, Empty_optional_columns_load_as_empty_boxes_without_an_error) {
  View(10);
  View(12);
  EXPECT_EQ(Form().lblIDVal.Caption(), "12");
  EXPECT_EQ(Form().txtGNO.Text(), "");
  EXPECT_EQ(Form().txtNotes.Text(), "");
  EXPECT_EQ(Form().txtCreator.Text(), "");
  EXPECT_TRUE(Form().gdpReceiveDate.IsEmpty());
  EXPECT_TRUE(Form().mptCounter1.NothingSelected());
  EXPECT_TRUE(Form().mptCounter2.NothingSelected());
  EXPECT_TRUE(Form().mptCounter3.NothingSelected());
  EXPECT_TRUE(Form().mptConfirmer.NothingSelected());
  EXPECT_EQ(Form().flexDetail.Rows(), 1);
  EXPECT_EQ(Form().txtTotalValue.Text(), "0");
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(LoadingFromFile, A_date_before_the_first_solar_year_loads_as_an_empty_box_and_the_counting_is_whole) {
  database.Execute(
      "update tblInventoryCounting set CreateDate='0001-01-01', FromDate='0622-03-21', ToDate='0622-03-22' "
      "where "
      "ID=10");
  View(11);
  View(10);
  EXPECT_EQ(Form().lblIDVal.Caption(), "10");
  EXPECT_TRUE(Form().gdpReceiveDate.IsEmpty());
  EXPECT_TRUE(Form().gdpFromDate.IsEmpty());
  EXPECT_EQ(Form().gdpToDate.PersianText(), "0001/01/01");
  EXPECT_EQ(Form().flexDetail.Rows(), 3);
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(Loading, A_form_that_cannot_be_filled_is_empty_afterwards_and_nothing_of_it_can_be_saved) {
  View(11);
  auto broken = Form().gdpToDate.StateChanged.Subscribe([this] {
    if (!Form().gdpToDate.IsEmpty()) throw std::out_of_range("a window that cannot show the date");
  });
  EXPECT_THROW(Form().ViewInvCounting(10), std::out_of_range);
  EXPECT_EQ(Form().lblIDVal.Caption(), "") << "the key of 10 over the lines of 11";
  EXPECT_EQ(Form().txtGNO.Text(), "");
  EXPECT_TRUE(Form().gdpReceiveDate.IsEmpty());
  EXPECT_EQ(Form().flexDetail.Rows(), 1);
  EXPECT_EQ(Mode(), DocumentMode::Empty);
  EXPECT_FALSE(Form().cmdEdit.Enabled());
  EXPECT_FALSE(Form().cmdIsFinalized.Enabled());
}

TEST_F(Loading, A_counting_without_a_store_clears_the_selection) {
  database.Execute("update tblInventoryCounting set InventoryID=null where ID=12");
  View(10);
  View(12);
  EXPECT_TRUE(Form().gmpInventory.NothingSelected());
}

TEST_F(Loading, A_counting_whose_creator_is_gone_has_an_empty_creator_box) {
  View(10);
  View(13);
  EXPECT_EQ(Form().txtCreator.Text(), "");
  EXPECT_EQ(Form().txtGNO.Text(), "A-13");
}

TEST_F(Loading, An_unknown_key_leaves_the_form_as_it_was) {
  View(10);
  EXPECT_FALSE(Form().ViewInvCounting(999));
  EXPECT_FALSE(Form().FillInvCountingData(999));
  EXPECT_EQ(Form().lblIDVal.Caption(), "10");
  EXPECT_EQ(Form().txtGNO.Text(), "A-10");
  EXPECT_EQ(Form().flexDetail.Rows(), 3);
  EXPECT_EQ(control.Shared().CurrentCountingID, 999) << "set before the counting is looked for";
}

TEST_F(Loading, A_stored_counting_opens_whoever_may_work_in_its_store_and_asks_nothing) {
  View(10);
  View(13);
  EXPECT_EQ(Form().gmpInventory.SelectedID(), 3) << "user 7 may not choose store 3, but may look";
  EXPECT_EQ(NewMessages(), Texts{});
}

TEST_F(Loading, An_unknown_key_in_a_list_of_loads_does_not_end_an_edit) {
  ViewAndEdit(10);
  EXPECT_FALSE(Form().ViewInvCounting(999));
  EXPECT_EQ(Mode(), DocumentMode::Editing);
}

}  // namespace
}  // namespace koru::test
