#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "tests/search/InvSearchTest.h"

namespace koru {
namespace {

class InvSearchForm : public InvSearchTest {};

TEST_F(InvSearchForm, Starts_with_an_empty_grid_of_thirteen_titled_columns) {
  ASSERT_EQ(form.flexSearch.Cols(), 13);
  EXPECT_EQ(form.flexSearch.Rows(), 1);
  const Texts titles = {"   رديف",
                        "شماره رايانه اي",
                        "شماره تاييد شده",
                        "شماره دستي    ",
                        "انبار                 ",
                        "تاريخ تهيه     ",
                        "تهيه كننده          ",
                        "از تاريخ        ",
                        "تا تاريخ          ",
                        "        شمارشگر اول      \u00A0",
                        "       شمارشگر دوم       \u00A0",
                        "        شمارشگر سوم      \u00A0",
                        "تاييد كننده شمارش           "};
  for (int col = 0; col < 13; ++col) {
    EXPECT_EQ(Cell(0, col), titles[static_cast<std::size_t>(col)]);
    EXPECT_EQ(form.flexSearch.IsCentred(col), col > 0);
  }
}

TEST_F(InvSearchForm, Offers_stores_people_and_the_creators_by_name) {
  const std::string connection = database.ConnectionText();
  EXPECT_EQ(form.gmpInventory.ConnectionString(), connection);
  EXPECT_EQ(form.gmpInventory.Caption(), "انبارها");
  EXPECT_EQ(form.gmpInventory.Table(), "tblInventory");
  EXPECT_EQ(form.gmpInventory.ParentTable(), "tblInventoryParent");
  for (const PersonSelector* person :
       {&form.mptCounter1, &form.mptCounter2, &form.mptCounter3, &form.mptConfirmer}) {
    EXPECT_EQ(person->ConnectionString(), connection);
  }
  Texts creators;
  for (const auto& item : form.cmbcreator.Items())
    creators.push_back(item.text + std::to_string(item.itemData));
  EXPECT_EQ(creators, (Texts{"احمد2", "شمارنده11", "مريم5"}));
  EXPECT_EQ(form.cmbcreator.ListIndex(), -1);
}

TEST_F(InvSearchForm, Loads_once_and_again_only_after_a_failure) {
  form.txtNotes.UserType("سالانه");
  form.Load();
  EXPECT_EQ(form.txtNotes.Text(), "سالانه");
  EXPECT_EQ(NewStatements(), Texts{});

  frmInvSearch fresh{shared, [](std::int32_t) { return true; }};
  shared.data.SetConnectionString("0");
  EXPECT_THROW(fresh.Load(), DatabaseError);
  shared.data.SetConnectionString(database.ConnectionText());
  fresh.Load();
  EXPECT_EQ(fresh.cmbcreator.Items().size(), 3U);
  EXPECT_TRUE(fresh.chkTemp.Checked());
}

TEST_F(InvSearchForm, Shows_each_field_of_a_counting_in_its_column) {
  form.txtid2.UserType("1");
  EXPECT_EQ(Found(), std::vector<int>{1});
  Texts row;
  for (int col = 0; col < 13; ++col) row.push_back(Cell(1, col));
  EXPECT_EQ(row, (Texts{"1", "1", "", "A-1", "انبار مركزي", "1403/01/01", "مريم", "1402/10/11", "1402/11/12",
                        "شمارنده", "مريم", "", "احمد"}));
}

TEST_F(InvSearchForm, A_temporary_counting_has_an_empty_number_and_a_final_one_shows_its_own) {
  Found();
  for (const auto& [key, number] :
       std::map<int, std::string>{{1, ""}, {2, "1"}, {3, "2"}, {10, "12"}, {12, "3"}}) {
    EXPECT_EQ(Cell(RowOf(key), 2), number) << key;
  }
  EXPECT_EQ(Column(0), (Texts{"1", "2", "3", "4", "5"}));
}

TEST_F(InvSearchForm, A_second_search_replaces_the_first_and_says_how_many_were_found) {
  EXPECT_EQ(form.lblResultCount.Caption(), "");
  Found();
  EXPECT_EQ(form.lblResultCount.Caption(), "5 شمارش يافت شد");
  form.txtid1.UserType("1000");
  EXPECT_EQ(Found(), std::vector<int>{});
  EXPECT_EQ(form.lblResultCount.Caption(), "شمارشي يافت نشد.");
}

TEST_F(InvSearchForm, A_click_on_a_title_sorts_numbers_as_numbers_and_numbers_the_rows_anew) {
  Found();
  form.flexSearch.UserClickHeader(2);
  EXPECT_EQ(Column(2), (Texts{"1", "2", "3", "12", ""}));
  EXPECT_EQ(Column(0), (Texts{"1", "2", "3", "4", "5"}));
  form.flexSearch.UserClickHeader(3);
  EXPECT_EQ(Column(3), (Texts{"9", "", "A-1", "A-10", "B"}));
  EXPECT_EQ(Column(0), (Texts{"1", "2", "3", "4", "5"}));
}

TEST_F(InvSearchForm, A_click_on_the_row_number_title_or_on_a_row_sorts_nothing) {
  Found();
  form.flexSearch.UserClickHeader(2);
  const Texts sorted = Column(1);
  form.flexSearch.UserClickHeader(0);
  form.flexSearch.UserClick(1, 1);
  EXPECT_EQ(Column(1), sorted);
  EXPECT_TRUE(opened.empty());
}

TEST_F(InvSearchForm, A_double_click_opens_that_counting_and_hides_the_search) {
  screen.OnModal = [this](Form&) {
    Found();
    form.flexSearch.UserDoubleClick(RowOf(10), 7);
    EXPECT_FALSE(form.Visible());
  };
  form.Show(true);
  EXPECT_EQ(opened, std::vector<std::int32_t>{10});
  openedExists = false;  // deleted by someone else meanwhile
  screen.OnModal = [this](Form&) {
    form.flexSearch.UserDoubleClick(RowOf(1), 1);
    EXPECT_FALSE(form.Visible());
  };
  form.Show(true);
  EXPECT_EQ(opened, (std::vector<std::int32_t>{10, 1}));
}

TEST_F(InvSearchForm, A_double_click_on_the_titles_opens_nothing) {
  Found();
  form.Show(false);
  form.flexSearch.UserDoubleClick(0, 1);
  form.flexSearch.DblClick.Raise();  // no row was ever clicked
  EXPECT_TRUE(opened.empty());
  EXPECT_TRUE(form.Visible());
}

TEST_F(InvSearchForm, Criteria_and_results_survive_Exit_until_New_search) {
  form.Show(false);
  form.txtNotes.UserType("سالانه");
  form.gdpFromDate1.UserSet(ParseIso("2024-01-01"));
  Found();
  form.cmdExit.UserClick();
  EXPECT_FALSE(form.Visible());
  EXPECT_TRUE(form.Loaded());
  form.Load();
  form.Show(false);
  EXPECT_EQ(form.txtNotes.Text(), "سالانه");
  EXPECT_EQ(Keys(), std::vector<int>{1});
  form.UserClose();
  EXPECT_TRUE(form.Loaded());
  EXPECT_EQ(Keys(), std::vector<int>{1});
}

TEST_F(InvSearchForm, New_search_empties_every_criterion_and_the_results) {
  TextBox* const boxes[] = {&form.txtid1,   &form.txtid2,   &form.txtMinG,    &form.txtMaxG, &form.txtcode1,
                            &form.txtcode2, &form.txtNotes, &form.txtBarCode, &form.txtName, &form.txtCode};
  DateBox* const dates[] = {&form.gdpcreatedate1, &form.gdpcreatedate2, &form.gdpFromDate1,
                            &form.gdpFromDate2,   &form.gdpToDate1,     &form.gdpToDate2};
  Selector* const selectors[] = {&form.gmpInventory, &form.mptCounter1, &form.mptCounter2, &form.mptCounter3,
                                 &form.mptConfirmer};
  Found();
  for (TextBox* box : boxes) box->UserType("1");
  for (DateBox* date : dates) date->UserSet(ParseIso("2024-01-01"));
  for (Selector* selector : selectors) selector->UserSelect(3);
  form.cmbcreator.UserChoose(1);
  form.chkTemp.UserCheck(false);
  form.chkFinal.UserCheck(false);
  form.chkAllInvs.UserCheck(true);
  form.cmdNew.UserClick();
  for (const TextBox* box : boxes) EXPECT_EQ(box->Text(), "") << box->Name();
  for (const DateBox* date : dates) EXPECT_TRUE(date->IsEmpty()) << date->Name();
  for (const Selector* selector : selectors) EXPECT_TRUE(selector->NothingSelected()) << selector->Name();
  EXPECT_EQ(form.cmbcreator.ListIndex(), -1);
  EXPECT_TRUE(form.chkTemp.Checked());
  EXPECT_TRUE(form.chkFinal.Checked());
  EXPECT_FALSE(form.chkAllInvs.Checked());
  EXPECT_EQ(form.flexSearch.Rows(), 1);
  EXPECT_EQ(form.lblResultCount.Caption(), "");
}

TEST_F(InvSearchForm, Delete_takes_the_creator_back) {
  form.cmbcreator.UserChoose(1);
  form.cmbcreator.UserKey({65, 0});
  EXPECT_EQ(form.cmbcreator.ListIndex(), 1);
  form.cmbcreator.UserKey({46, 0});
  EXPECT_EQ(form.cmbcreator.ListIndex(), -1);
}

TEST_F(InvSearchForm, A_search_that_the_database_refuses_is_reported_and_leaves_the_form_usable) {
  Found();
  form.txtNotes.UserType("O'Neil");
  form.cmdSearch.UserClick();
  ASSERT_EQ(messages.Shown().size(), 1U);
  EXPECT_EQ(messages.Shown().front().title, "خطا");
  EXPECT_EQ(form.flexSearch.Rows(), 1);
  EXPECT_EQ(form.lblResultCount.Caption(), "");
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  form.txtNotes.UserType("ماهانه");
  EXPECT_EQ(Found(), std::vector<int>{3});
}

TEST_F(InvSearchForm, A_counting_that_cannot_be_opened_leaves_the_search_on_the_screen) {
  frmInvSearch broken{shared, [](std::int32_t) -> bool { throw DatabaseError("gone", 17, "Select"); }};
  broken.Load();
  broken.Show(false);
  broken.cmdSearch.UserClick();
  broken.flexSearch.UserDoubleClick(1, 1);
  EXPECT_TRUE(broken.Visible());
  EXPECT_EQ(messages.Shown().size(), 1U);
}

TEST_F(InvSearchForm, Thirty_thousand_countings_are_drawn_at_once) {
  database.InsertRows("tblInventoryCounting (ID,ManualCode,InventoryID,CreatorID)", 100, 30'099,
                      [](int i) { return std::to_string(i) + ",'M" + std::to_string(i) + "',7,5"; });
  int reports = 0;
  form.flexSearch.RowsChanged.Always([&](const GridChange&) { ++reports; });
  EXPECT_EQ(Found().size(), 30005U);
  EXPECT_EQ(Cell(30005, 0), "30005");
  form.flexSearch.UserClickHeader(1);
  EXPECT_LE(reports, 6);
}

}  // namespace
}  // namespace koru
