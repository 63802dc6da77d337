#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/search/GoodSearchTest.h"

namespace koru {
namespace {

class GoodSearchFields : public GoodSearchTest {
 protected:
  /// Types into a box, leaves it for the Exit button, and returns its text then.
  std::string Left(TextBox& box, const std::string& typed) {
    box.UserType(typed);
    form.SetFocus(form.cmdExit);
    return box.Text();
  }
};

TEST_F(GoodSearchFields, A_text_is_selected_as_a_whole_when_its_box_gets_the_keyboard) {
  for (TextBox* box :
       {&form.txtBarCode, &form.txtCode, &form.txtTitle, &form.txtNotes, &form.txtMinPrice, &form.txtMaxPrice,
        &form.txtMinQty, &form.txtMaxQty, &form.txtMinCurrencyRetailPrice, &form.txtMaxCurrencyRetailPrice,
        &form.txtMinDiscountPercent, &form.txtMaxDiscountPercent}) {
    SCOPED_TRACE(box->Name());
    form.SetFocus(form.cmdExit);
    box->SetText("گچ😀");
    box->Select(1, 1);
    form.SetFocus(*box);
    EXPECT_EQ(box->SelStart(), 0U);
    EXPECT_EQ(box->SelLength(), 4U);  // the last character takes two units
  }
}

TEST_F(GoodSearchFields, Prices_and_quantities_become_plain_numbers_when_they_are_left) {
  for (TextBox* box : {&form.txtMinPrice, &form.txtMaxPrice, &form.txtMinQty, &form.txtMaxQty,
                       &form.txtMinCurrencyRetailPrice, &form.txtMaxCurrencyRetailPrice}) {
    SCOPED_TRACE(box->Name());
    EXPECT_EQ(Left(*box, "12abc"), "12");
    EXPECT_EQ(Left(*box, "abc"), "0");
    EXPECT_EQ(Left(*box, "  1500 "), "1500");
    EXPECT_EQ(Left(*box, "02.50"), "2.5");
    for (const char* const typed : {"۱۲٫۵", "12/5", "۱۲/۵"}) EXPECT_EQ(Left(*box, typed), "12.5") << typed;
    for (const char* const typed : {"1,500,000", "۱٬۵۰۰٬۰۰۰", "۱،۵۰۰،۰۰۰"}) {
      EXPECT_EQ(Left(*box, typed), "1500000") << typed;
    }
    EXPECT_EQ(Left(*box, ""), "");
  }
}

TEST_F(GoodSearchFields, Blanks_in_a_quantity_stay_as_they_are) {
  EXPECT_EQ(Left(form.txtMaxQty, "  "), "  ");
}

TEST_F(GoodSearchFields, Discounts_and_texts_stay_as_they_were_typed) {
  for (TextBox* box : {&form.txtMinDiscountPercent, &form.txtMaxDiscountPercent, &form.txtBarCode,
                       &form.txtCode, &form.txtTitle, &form.txtNotes}) {
    EXPECT_EQ(Left(*box, "12abc"), "12abc") << box->Name();
  }
}

TEST_F(GoodSearchFields, Delete_empties_a_list_that_is_not_locked) {
  for (ComboBox* list : {&form.cmbGoodType, &form.cmbCMoneyType}) {
    SCOPED_TRACE(list->Name());
    list->UserChoose(1);
    list->SetLocked(true);
    list->UserKey({46, 0});
    EXPECT_EQ(list->ListIndex(), 1);
    list->SetLocked(false);
    list->UserKey({8, 0});
    EXPECT_EQ(list->ListIndex(), 1);
    list->UserKey({46, 0});
    EXPECT_EQ(list->ListIndex(), -1);
  }
}

TEST_F(GoodSearchFields, The_right_mouse_button_shows_the_menu_at_the_pointer) {
  std::vector<MenuPlace> places;
  form.menu.PoppedUp.Always([&](MenuPlace place) { places.push_back(place); });
  const std::initializer_list<Control*> withMenu = {
      &form.txtTitle,   &form.lblTitle,    &form.txtCode,     &form.lblCode,     &form.txtBarCode,
      &form.lblBarCode, &form.txtMinPrice, &form.txtMaxPrice, &form.lblMaxPrice, &form.lblLocation};
  for (Control* control : withMenu) control->UserRightClick();
  EXPECT_EQ(places, std::vector<MenuPlace>(10, MenuPlace::Cursor));
  for (Control* control : {static_cast<Control*>(&form.txtNotes), static_cast<Control*>(&form.txtMinQty)}) {
    control->UserRightClick();
  }
  EXPECT_EQ(places.size(), 10U);
}

TEST_F(GoodSearchFields, F1_shows_the_menu_in_the_middle_of_the_form_whatever_else_is_held) {
  std::vector<MenuPlace> places;
  form.menu.PoppedUp.Always([&](MenuPlace place) { places.push_back(place); });
  for (int shift = 0; shift < 8; ++shift) form.cmdExit.UserKey({112, shift});
  EXPECT_EQ(places, std::vector<MenuPlace>(8, MenuPlace::FormCentre));
}

TEST_F(GoodSearchFields, The_timer_lets_menu_and_type_button_follow_the_form) {
  form.cmdSearch.SetEnabled(false);
  form.Timer1.Fire();
  EXPECT_FALSE(form.mnuSearch.Enabled());
  EXPECT_TRUE(form.mnuNewSearch.Enabled());
  EXPECT_FALSE(form.chkEmptyAllConds.Enabled());
  EXPECT_FALSE(form.cmdGoodType.Enabled());

  form.cmdSearch.SetEnabled(true);
  form.cmdNewSearch.SetEnabled(false);
  form.cmbGoodType.UserChoose(0);
  form.Timer1.Fire();
  EXPECT_TRUE(form.mnuSearch.Enabled());
  EXPECT_FALSE(form.mnuNewSearch.Enabled());
  EXPECT_TRUE(form.chkEmptyAllConds.Enabled());
  EXPECT_FALSE(form.cmdGoodType.Enabled());

  EXPECT_TRUE(form.chkEmptyAllConds.UserCheck(false));
  form.Timer1.Fire();
  EXPECT_TRUE(form.cmdGoodType.Enabled());
}

}  // namespace
}  // namespace koru
