#include "tests/database/SampleFixture.h"

namespace koru::test {
namespace {

using SampleGoods = SampleTest;

bool IsEan13(const std::string& barcode) {
  if (barcode.size() != 13 || barcode.find_first_not_of("0123456789") != std::string::npos) return false;
  int sum = 0;
  for (std::size_t i = 0; i < barcode.size(); ++i) sum += (barcode[i] - '0') * (i % 2 == 0 ? 1 : 3);
  return sum % 10 == 0;
}

}  // namespace

TEST_F(SampleGoods, Barcodes_are_Iranian_and_their_check_digits_right) {
  const Texts barcodes = Rows("select Barcode from tblGood where Barcode <> ''");
  EXPECT_GE(barcodes.size(), 600U);
  for (const std::string& barcode : barcodes) {
    EXPECT_TRUE(IsEan13(barcode)) << barcode;
    EXPECT_EQ(barcode.substr(0, 3), "626") << barcode;
  }
  EXPECT_EQ(Number("select count(*) from tblGood where Barcode = ''"), 1);
}

TEST_F(SampleGoods, Names_and_codes_are_given_once) {
  EXPECT_EQ(Rows("select Name from tblGood group by Name having count(*) > 1"), Texts{});
  EXPECT_EQ(Rows("select Code from tblGood group by Code having count(*) > 1 and Code is not null"), Texts{});
}

TEST_F(SampleGoods, Names_are_written_on_different_keyboards) {
  for (const std::string sign : {"ي", "ی", "ك", "ک", "\u200C", "LED", "A4"}) {
    EXPECT_GE(Number("select count(*) from tblGood where instr(Name, '" + sign + "') > 0"), 2) << sign;
  }
}

TEST_F(SampleGoods, What_may_be_missing_is_missing_now_and_then) {
  for (const std::string column : {"Code", "RetailPrice", "CurrencyRetailPrice", "CCurrencyTypeID",
                                   "TotalQty", "StandardDiscountPercent", "TmpLocationID", "Notes"}) {
    EXPECT_GT(Number("select count(*) from tblGood where " + column + " is null"), 2) << column;
    EXPECT_GT(Number("select count(*) from tblGood where " + column + " is not null"), 40) << column;
  }
}

TEST_F(SampleGoods, Keys_of_goods_lead_to_what_they_name) {
  for (const auto& [column, table] :
       {std::pair("CCurrencyTypeID", "tblPelinCurrencyType"), std::pair("SaleScaleID", "tblGoodScale"),
        std::pair("PurchaseScaleID", "tblGoodScale"), std::pair("TypeID", "tblGoodType"),
        std::pair("GoodGroupID", "tblGoodGroup"), std::pair("TmpLocationID", "tblBPLocation")}) {
    EXPECT_EQ(Number(std::string("select count(*) from tblGood where ") + column +
                     " not in (select ID from " + table + ")"),
              0)
        << column;
  }
}

TEST_F(SampleGoods, Some_goods_have_no_base_unit_among_their_sale_units) {
  const std::string base =
      "select Barcode from tblGoodSaleScale join tblGoodScale on ID = ScaleID"
      " where ScaleToBaseParent = 1";
  EXPECT_GT(Number("select count(*) from tblGood where Barcode in (" + base + ")"), 550);
  EXPECT_GT(Number("select count(*) from tblGood where Barcode not in (" + base + ")"), 5);
}

}  // namespace koru::test
