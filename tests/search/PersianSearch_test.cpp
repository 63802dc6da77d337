#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/search/GoodSearchTest.h"
#include "tests/search/InvSearchTest.h"

namespace koru {
namespace {

/// The same words as two keyboards write them: letters, digits and the zero-width non-joiner differ.
const std::string kArabicKeys = "كتاب قيمتي ٤٥";
const std::string kPersianKeys = "کتاب قیمتی ۴۵";
const std::string kLatinDigits = "کتاب قیم\u200Cتي 45";

/// A server whose collation keeps the letters apart finds what is written with the same ones only.
constexpr const char* kKeptApart = "the collation of this server keeps the keyboards' letters apart";

class PersianGoodSearch : public GoodSearchTest {
 protected:
  void SetUp() override {
    GoodSearchTest::SetUp();
    database.Execute("delete from tblGood; insert into tblGood (Barcode,Name,Code,Notes) values ('كد١','" +
                     kArabicKeys + "','" + kArabicKeys + "','" + kArabicKeys + "'),('کد2','" + kPersianKeys +
                     "','" + kPersianKeys + "','" + kPersianKeys + "'),('x','دفتر','1','-')");
  }
};

TEST_F(PersianGoodSearch, Either_keyboard_finds_what_the_other_stored) {
  if (!database.TakesKeyboardsAsEqual()) GTEST_SKIP() << kKeptApart;
  for (OptionButton* option : {&form.optPrecise, &form.optNonPrecise}) {
    option->UserChoose();
    for (TextBox* box : {&form.txtTitle, &form.txtCode, &form.txtNotes}) {
      for (const std::string& typed : {kArabicKeys, kPersianKeys, kLatinDigits}) {
        box->UserType(typed);
        EXPECT_EQ(Found().size(), 2U) << box->Name() << ' ' << typed;
      }
      box->UserType("");
    }
  }
}

TEST_F(PersianGoodSearch, Barcodes_match_in_any_digits) {
  if (!database.TakesKeyboardsAsEqual()) GTEST_SKIP() << kKeptApart;
  form.txtBarCode.UserType("کد1");
  EXPECT_EQ(Found(), Texts{"كد١"});
  form.txtBarCode.UserType("كد۲");
  EXPECT_EQ(Found(), Texts{"کد2"});
  form.txtBarCode.SetTag("('','كد٢')");
  EXPECT_EQ(Found(), Texts{"کد2"});
}

TEST_F(PersianGoodSearch, Bounds_count_in_any_digits) {
  database.Execute("update tblGood set RetailPrice=45 where Barcode='x'");
  form.txtMinPrice.UserType("۴۴");
  form.txtMaxPrice.UserType("٤٥");
  EXPECT_EQ(Found(), Texts{"x"});
}

class PersianInvSearch : public InvSearchTest {};

TEST_F(PersianInvSearch, Either_keyboard_finds_what_the_other_stored) {
  if (!database.TakesKeyboardsAsEqual()) GTEST_SKIP() << kKeptApart;
  database.Execute("update tblInventoryCounting set Notes='" + kArabicKeys +
                   "', ManualCode='١٢' where ID=1;" + "update tblInventoryCounting set Notes='" +
                   kPersianKeys + "', ManualCode='12' where ID=2;" + "update tblGood set Name='" +
                   kArabicKeys + "', Code='" + kPersianKeys + "' where Barcode='200'");
  for (TextBox* box : {&form.txtNotes, &form.txtName, &form.txtCode}) {
    for (const std::string& typed : {kArabicKeys, kPersianKeys, kLatinDigits}) {
      box->UserType(typed);
      EXPECT_EQ(Found(), (std::vector<int>{1, 2})) << box->Name() << ' ' << typed;
    }
    box->UserType("");
  }
  form.txtMinG.UserType("۱۲");
  form.txtMaxG.UserType("١٢");
  EXPECT_EQ(Found(), (std::vector<int>{1, 2}));
  form.txtMinG.UserType("");
  form.txtMaxG.UserType("");
  form.txtBarCode.UserType("۲۰۰");
  EXPECT_EQ(Found(), (std::vector<int>{1, 2}));
}

TEST_F(PersianInvSearch, Numbers_count_in_any_digits) {
  form.txtid1.UserType("۱۲");
  EXPECT_EQ(Found(), std::vector<int>{12});
}

}  // namespace
}  // namespace koru
