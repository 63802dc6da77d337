#include <gtest/gtest.h>

#include <algorithm>
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

class PersianGoodSearch : public GoodSearchTest {
 protected:
  void SetUp() override {
    GoodSearchTest::SetUp();
    areEqual = database.TakesKeyboardsAsEqual();
    database.Execute("delete from tblGood; insert into tblGood (Barcode,Name,Code,Notes) values ('كد١','" +
                     kArabicKeys + "','" + kArabicKeys + "','" + kArabicKeys + "'),('کد2','" + kPersianKeys +
                     "','" + kPersianKeys + "','" + kPersianKeys + "'),('x','دفتر','1','-')");
  }
  /// Whether the search finds a good.
  bool Finds(const std::string& barcode) {
    const Texts found = Found();
    return std::find(found.begin(), found.end(), barcode) != found.end();
  }

  bool areEqual = true;  ///< for the collation of a server; the embedded database always takes them so
};

TEST_F(PersianGoodSearch,
       Either_keyboard_finds_what_it_stored_and_the_other_where_the_collation_takes_them_as_equal) {
  for (OptionButton* option : {&form.optPrecise, &form.optNonPrecise}) {
    option->UserChoose();
    for (TextBox* box : {&form.txtTitle, &form.txtCode, &form.txtNotes}) {
      for (const std::string& typed : {kArabicKeys, kPersianKeys, kLatinDigits}) {
        box->UserType(typed);
        if (areEqual || typed == kArabicKeys) {
          EXPECT_TRUE(Finds("كد١")) << box->Name() << ' ' << typed;
        }
        if (areEqual || typed == kPersianKeys) {
          EXPECT_TRUE(Finds("کد2")) << box->Name() << ' ' << typed;
        }
        EXPECT_FALSE(Finds("x")) << box->Name() << ' ' << typed;
      }
      box->UserType("");
    }
  }
}

TEST_F(PersianGoodSearch, Barcodes_match_in_any_digits_where_the_collation_takes_them_as_equal) {
  form.txtBarCode.UserType(areEqual ? "کد1" : "كد١");
  EXPECT_EQ(Found(), Texts{"كد١"});
  form.txtBarCode.UserType(areEqual ? "كد۲" : "کد2");
  EXPECT_EQ(Found(), Texts{"کد2"});
  form.txtBarCode.SetTag(areEqual ? "('','كد٢')" : "('','کد2')");
  EXPECT_EQ(Found(), Texts{"کد2"});
}

TEST_F(PersianGoodSearch, Bounds_count_in_any_digits) {
  database.Execute("update tblGood set RetailPrice=45 where Barcode='x'");
  form.txtMinPrice.UserType("۴۴");
  form.txtMaxPrice.UserType("٤٥");
  EXPECT_EQ(Found(), Texts{"x"});
}

class PersianInvSearch : public InvSearchTest {};

TEST_F(PersianInvSearch,
       Either_keyboard_finds_what_it_stored_and_the_other_where_the_collation_takes_them_as_equal) {
  const bool areEqual = database.TakesKeyboardsAsEqual();
  database.Execute("update tblInventoryCounting set Notes='" + kArabicKeys + "' where ID=1;" +
                   "update tblInventoryCounting set Notes='" + kPersianKeys + "' where ID=2;" +
                   "update tblGood set Name='" + kArabicKeys + "', Code='" + kPersianKeys +
                   "' where Barcode='200'");
  const std::vector<int> both = {1, 2};
  const auto find = [this](TextBox& box, const std::string& typed) {
    box.UserType(typed);
    std::vector<int> found = Found();
    box.UserType("");
    return found;
  };
  EXPECT_EQ(find(form.txtNotes, kArabicKeys), areEqual ? both : std::vector<int>{1});
  EXPECT_EQ(find(form.txtNotes, kPersianKeys), areEqual ? both : std::vector<int>{2});
  EXPECT_EQ(find(form.txtName, kArabicKeys), both);
  EXPECT_EQ(find(form.txtCode, kPersianKeys), both);
  if (areEqual) {  // the other spellings
    EXPECT_EQ(find(form.txtNotes, kLatinDigits), both);
    for (const std::string& typed : {kPersianKeys, kLatinDigits}) EXPECT_EQ(find(form.txtName, typed), both);
    for (const std::string& typed : {kArabicKeys, kLatinDigits}) EXPECT_EQ(find(form.txtCode, typed), both);
  }
}

TEST_F(PersianInvSearch, Numbers_and_barcodes_count_in_any_digits_where_the_collation_takes_them_as_equal) {
  const bool areEqual = database.TakesKeyboardsAsEqual();
  database.Execute(
      "update tblInventoryCounting set ManualCode='١٢' where ID=1;"
      "update tblInventoryCounting set ManualCode='12' where ID=2");
  form.txtMinG.UserType(areEqual ? "۱۲" : "١٢");
  form.txtMaxG.UserType("١٢");
  EXPECT_EQ(Found(), areEqual ? (std::vector<int>{1, 2}) : std::vector<int>{1});
  form.txtMinG.UserType("");
  form.txtMaxG.UserType("");
  form.txtBarCode.UserType(areEqual ? "۲۰۰" : "200");
  EXPECT_EQ(Found(), (std::vector<int>{1, 2}));
}

TEST_F(PersianInvSearch, Numbers_count_in_any_digits) {
  form.txtid1.UserType("۱۲");
  EXPECT_EQ(Found(), std::vector<int>{12});
}

}  // namespace
}  // namespace koru
