#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "tests/search/GoodSearchTest.h"

namespace koru {
namespace {

class GoodSearchForm : public GoodSearchTest {
 protected:
  /// A key that the user presses while the notes have the keyboard.
  void Press(int key, int shift) { form.txtNotes.UserKey({key, shift}); }
};

TEST_F(GoodSearchForm, Starts_with_selectors_and_lists_from_the_database) {
  EXPECT_EQ(form.Caption(), "انتخاب از ميان كالاها");
  const auto setUp = [&](const TreeSelector& s) {
    EXPECT_EQ(s.ConnectionString(), database.ConnectionText());
    return s.Caption() + " " + s.Table() + " " + s.ParentTable();
  };
  EXPECT_EQ(setUp(form.gmpProductGroup), "گروه\u200Cهاي كالا vwGoodGroup_CodeMajor tblGoodGroupParent");
  EXPECT_EQ(setUp(form.gmpLocation), "محل\u200Cها tblBPLocation tblBPLocationChilds");
  EXPECT_EQ(setUp(form.gtpSalesUnitType), "واحدهاي كالا vwGoodScaleMajor tblGoodScaleParent");
  EXPECT_EQ(setUp(form.gtpPurchaseUnitType), "واحدهاي كالا vwGoodScaleMajor tblGoodScaleParent");
  EXPECT_EQ(setUp(form.gmpInventory), "انبارها tblInventory tblInventoryParent");
  Texts items;
  for (const ComboBox* list : {&form.cmbCMoneyType, &form.cmbGoodType}) {
    for (const auto& item : list->Items()) items.push_back(item.text + std::to_string(item.itemData));
  }
  EXPECT_EQ(items, (Texts{"دلار4", "يورو3", "كالا2", "مصرفي9"}));
  EXPECT_FALSE(form.pgbStatus.Visible());
  EXPECT_EQ(form.cmdExit.Caption(), "خروج");
  EXPECT_TRUE(form.cmdExit.Enabled());
}

TEST_F(GoodSearchForm, Set_up_alone_leaves_the_match_by_part_chosen_and_load_the_precise_one) {
  EXPECT_TRUE(form.optPrecise.Chosen());
  form.InitializeComponents();
  EXPECT_TRUE(form.optNonPrecise.Chosen());
  EXPECT_FALSE(form.optPrecise.Chosen());
  EXPECT_EQ(form.cmbGoodType.Items().size(), 2U);
}

TEST_F(GoodSearchForm, Takes_over_the_store_of_the_counting_when_it_is_loaded) {
  EXPECT_TRUE(form.gmpInventory.NothingSelected());
  EXPECT_EQ(picker.inventory, -1);
  chosenStore = 7;
  form.Load(chosenStore);  // loaded already
  EXPECT_TRUE(form.gmpInventory.NothingSelected());
  SqlText other("left behind");
  frmGoodSearch fresh{shared, [&other](SqlText text) { other = std::move(text); }};
  fresh.Load(chosenStore);
  EXPECT_EQ(fresh.gmpInventory.SelectedID(), 7);
  EXPECT_EQ(picker.inventory, 7);
  EXPECT_TRUE(other.Empty());
  EXPECT_EQ(picker.connection, database.ConnectionText());
  EXPECT_EQ(picker.userID, 5);
}

TEST_F(GoodSearchForm, Loads_again_after_a_failure) {
  SqlText other;
  frmGoodSearch fresh{shared, [&other](SqlText text) { other = std::move(text); }};
  shared.data.SetConnectionString("0");
  EXPECT_THROW(fresh.Load(chosenStore), DatabaseError);
  shared.data.SetConnectionString(database.ConnectionText());
  fresh.Load(chosenStore);
  EXPECT_EQ(fresh.cmbGoodType.Items().size(), 2U);
  EXPECT_TRUE(fresh.optPrecise.Chosen());
}

TEST_F(GoodSearchForm, Search_hands_the_condition_over_and_hides) {
  form.Show(false);
  form.txtCode.UserType("K-1");
  form.cmdSearch.UserClick();
  EXPECT_EQ(condition.Text(), " tblGood.Barcode<>''  and  tblGood.Code like 'K-1'");
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(NewStatements(), Texts{});
}

TEST_F(GoodSearchForm, Exit_keeps_the_condition_and_the_criteria) {
  form.txtCode.UserType("K-1");
  form.cmdSearch.UserClick();
  const std::string before = condition.Text();
  form.Show(false);
  form.txtCode.UserType("K-2");
  form.cmdExit.UserClick();
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(condition.Text(), before);
  form.Load(chosenStore);
  EXPECT_EQ(form.txtCode.Text(), "K-2");
  EXPECT_EQ(condition.Text(), before);
}

TEST_F(GoodSearchForm, New_search_resets_every_criterion_and_asks_for_nothing) {
  TextBox* const boxes[] = {&form.txtMinPrice,
                            &form.txtMaxPrice,
                            &form.txtMinQty,
                            &form.txtMaxQty,
                            &form.txtMinCurrencyRetailPrice,
                            &form.txtMaxCurrencyRetailPrice,
                            &form.txtMinDiscountPercent,
                            &form.txtMaxDiscountPercent,
                            &form.txtBarCode,
                            &form.txtTitle,
                            &form.txtCode,
                            &form.txtNotes};
  CheckBox* const checks[] = {&form.chkKnownDiscount,    &form.chkUnKnownDiscount, &form.chkAllBranches,
                              &form.chkAllLBranches,     &form.chkEmptyAllConds,   &form.chkShowExistance,
                              &form.chkShowRialExistance};
  TreeSelector* const selectors[] = {&form.gtpSalesUnitType, &form.gtpPurchaseUnitType, &form.gmpProductGroup,
                                     &form.gmpLocation,      &form.gmpInventory,        &form.gmpProducer};
  for (TextBox* box : boxes) box->UserType("1");
  for (CheckBox* check : checks) check->UserCheck(!check->Checked());
  for (TreeSelector* selector : selectors) selector->UserSelect(3);
  form.txtBarCode.SetTag("('')");
  form.optNonPrecise.UserChoose();
  form.cmbCMoneyType.UserChoose(0);
  form.cmbGoodType.UserChoose(0);
  form.FlexSearchResult.SetRows(4);
  form.cmdSearch.UserClick();
  EXPECT_FALSE(condition.Empty());
  form.cmdNewSearch.UserClick();
  for (const TextBox* box : boxes) EXPECT_EQ(box->Text(), "") << box->Name();
  std::string checked;
  for (const CheckBox* check : checks) checked += check->Checked() ? '1' : '0';
  EXPECT_EQ(checked, "1111100");
  for (const TreeSelector* selector : selectors) EXPECT_TRUE(selector->NothingSelected()) << selector->Name();
  EXPECT_EQ(form.txtBarCode.Tag(), "");
  EXPECT_TRUE(form.optPrecise.Chosen());
  EXPECT_EQ(form.cmbCMoneyType.ListIndex(), -1);
  EXPECT_EQ(form.cmbGoodType.ListIndex(), -1);
  EXPECT_EQ(form.FlexSearchResult.Rows(), 1);
  EXPECT_TRUE(condition.Empty());
}

TEST_F(GoodSearchForm, Gives_the_keyboard_to_Search_when_it_becomes_active) {
  form.txtNotes.UserType("x");
  form.Show(false);
  EXPECT_EQ(form.Focus(), &form.cmdSearch);
  form.SetFocus(form.txtNotes);
  form.cmdSearch.SetEnabled(false);
  form.Activate();
  EXPECT_EQ(form.Focus(), &form.txtNotes);
}

TEST_F(GoodSearchForm, Ctrl_with_S_N_and_Z_searches_starts_anew_and_leaves) {
  form.Show(false);
  form.txtCode.UserType("K-1");
  Press(83, 2);
  EXPECT_FALSE(condition.Empty());
  EXPECT_FALSE(form.Visible());
  Press(78, 2);
  EXPECT_TRUE(condition.Empty());
  EXPECT_EQ(form.txtCode.Text(), "");
  form.Show(false);
  Press(90, 2);
  EXPECT_FALSE(form.Visible());
}

TEST_F(GoodSearchForm, A_shortcut_with_anything_but_Ctrl_alone_does_nothing) {
  form.Show(false);
  form.txtCode.UserType("K-1");
  for (const int key : {83, 78, 90}) {
    for (const int shift : {0, 1, 3, 4, 6, 7}) Press(key, shift);
  }
  Press(65, 2);
  EXPECT_TRUE(form.Visible());
  EXPECT_TRUE(condition.Empty());
  EXPECT_EQ(form.txtCode.Text(), "K-1");
}

TEST_F(GoodSearchForm, A_shortcut_of_a_command_that_is_not_available_does_nothing) {
  form.Show(false);
  form.txtCode.UserType("K-1");
  form.cmdSearch.SetEnabled(false);
  form.cmdNewSearch.SetEnabled(false);
  form.cmdExit.SetEnabled(false);
  for (const int key : {83, 78, 90}) Press(key, 2);
  EXPECT_TRUE(form.Visible());
  EXPECT_TRUE(condition.Empty());
  EXPECT_EQ(form.txtCode.Text(), "K-1");
}

TEST_F(GoodSearchForm, A_shortcut_leaves_the_field_that_has_the_keyboard_as_it_is) {
  form.txtMinPrice.UserType("12abc");
  form.txtMinPrice.UserKey({83, 2});
  EXPECT_EQ(condition.Text(), " tblGood.Barcode<>''  and  RetailPrice >= 12");
  EXPECT_EQ(form.txtMinPrice.Text(), "12abc");
}

TEST_F(GoodSearchForm, The_menu_shows_shortcuts_and_runs_their_commands) {
  EXPECT_EQ(form.mnuHelp.Caption(), "F1                            راهنمايي");
  EXPECT_EQ(form.mnuSearch.Caption(), "Ctrl+S                          جستجو");
  EXPECT_EQ(form.mnuNewSearch.Caption(), "Ctrl+N               جستجوي جديد");
  EXPECT_EQ(form.mnuExit.Caption(), "Ctrl+Z                            خروج");
  form.Show(false);
  form.mnuHelp.UserClick();
  EXPECT_TRUE(form.Visible());
  EXPECT_TRUE(condition.Empty());
  form.mnuSearch.UserClick();
  EXPECT_FALSE(condition.Empty());
  EXPECT_FALSE(form.Visible());
  form.mnuNewSearch.UserClick();
  EXPECT_TRUE(condition.Empty());
  form.Show(false);
  form.mnuExit.UserClick();
  EXPECT_FALSE(form.Visible());
}

}  // namespace
}  // namespace koru
