#include "platform/text/Date.h"
#include "tests/database/SampleFixture.h"

namespace koru::test {
namespace {

using SampleDocuments = SampleTest;

}  // namespace

TEST_F(SampleDocuments, Hundreds_of_documents_with_thousands_of_lines) {
  EXPECT_GT(Number("select count(*) from tblInventoryReceipt"), 200);
  EXPECT_GT(Number("select count(*) from tblInventoryDispatch"), 250);
  EXPECT_GT(Number("select count(*) from tblInventoryReceiptDetail"), 3000);
  EXPECT_GT(Number("select count(*) from tblInventoryDispatchDetail"), 3000);
}

TEST_F(SampleDocuments, Registered_ones_carry_the_codes_1_to_n) {
  for (const std::string table : {"tblInventoryReceipt", "tblInventoryDispatch", "tblInventoryCounting"}) {
    const std::int64_t registered = Number("select count(*) from " + table + " where Code is not null");
    EXPECT_GT(registered, 5) << table;
    EXPECT_EQ(Number("select count(distinct Code) from " + table), registered) << table;
    EXPECT_EQ(Number("select min(Code) from " + table), 1) << table;
    EXPECT_EQ(Number("select max(Code) from " + table), registered) << table;
    EXPECT_GT(Number("select count(*) from " + table + " where Code is null"), 9) << table;
  }
}

TEST_F(SampleDocuments, Every_date_is_stored_with_its_Solar_Hijri_text) {
  const std::string twins =
      "select CreateDate, FarsiCreateDate from tblInventoryCounting"
      " union select FromDate, FarsiFromDate from tblInventoryCounting"
      " union select ToDate, FarsiToDate from tblInventoryCounting"
      " union select ReceiveDate, FarsiReceiveDate from tblInventoryReceipt"
      " union select CreateDate, FarsiCreateDate from tblInventoryReceipt"
      " union select ReceiveDate, FarsiReceiveDate from tblInventoryDispatch"
      " union select CreateDate, FarsiCreateDate from tblInventoryDispatch";
  int days = 0;
  for (const std::string& twin : Rows(twins)) {
    if (twin == "|") continue;  // both NULL
    const std::optional<Date> day = ParseIso(twin);
    ASSERT_TRUE(day) << twin;
    EXPECT_EQ(twin, IsoText(*day) + "|" + SolarText(*day));
    EXPECT_LE(*day, kSampleToday);
    ++days;
  }
  EXPECT_GT(days, 200);
}

TEST_F(SampleDocuments, A_good_weighed_in_tenths_has_left_the_store_again) {
  const auto quantities = [this](const std::string& kind) {
    return Rows("select Qty from tblInventory" + kind +
                "Detail where Barcode = " + "(select Barcode from tblGood where Code = 'R007') order by 1");
  };
  EXPECT_EQ(quantities("Receipt"), (Texts{"0.1", "0.2"}));
  EXPECT_EQ(quantities("Dispatch"), Texts{"0.3"});
}

TEST_F(SampleDocuments, Lines_belong_to_documents_and_name_goods) {
  const auto check = [this](const std::string& kind) {
    const std::string lines = "tblInventory" + kind + "Detail";
    EXPECT_EQ(Number("select count(*) from " + lines + " where " + kind +
                     "ID not in (select ID from tblInventory" + kind + ")"),
              0);
    EXPECT_EQ(
        Number("select count(*) from " + lines + " where trim(Barcode) not in (select Barcode from tblGood)"),
        0);
    EXPECT_EQ(Number("select count(*) from " + lines + " where not Qty > 0 or not ScaleQty > 0"), 0);
  };
  for (const char* kind : {"Receipt", "Dispatch"}) check(kind);
}

TEST_F(SampleDocuments, Almost_every_good_in_a_store_has_stock_and_a_rate) {
  const std::string moved =
      "select InventoryID, trim(Barcode) as good, Qty, Value from tblInventoryReceiptDetail join "
      "tblInventoryReceipt"
      " on ID = ReceiptID where Code is not null and ReceiveDate >= '2025-03-21' union all"
      " select InventoryID, trim(Barcode), -Qty, Value from tblInventoryDispatchDetail join "
      "tblInventoryDispatch"
      " on ID = DispatchID where Code is not null and ReceiveDate >= '2025-03-21'";
  const std::string stocks =
      "select sum(Qty) as stock, max(Value) as rate from (" + moved + ") group by InventoryID, good";
  const std::int64_t all = Number("select count(*) from (" + stocks + ")");
  EXPECT_GT(all, 800);
  EXPECT_GT(Number("select count(*) from (" + stocks + ") where stock > 0"), all * 9 / 10);
  EXPECT_GT(Number("select count(*) from (" + stocks + ") where stock < 0"), 3);
  EXPECT_GT(Number("select count(*) from (" + stocks + ") where rate > 0"), all * 9 / 10);
}

TEST_F(SampleDocuments, What_the_first_year_closes_with_the_second_opens_with) {
  const std::string closing =
      "select InventoryID, Barcode, Qty, Value from tblInventoryDispatchDetail join tblInventoryDispatch"
      " on ID = DispatchID where FarsiReceiveDate = '1403/12/30' order by 1, 2";
  const std::string opening =
      "select InventoryID, Barcode, Qty, Value from tblInventoryReceiptDetail join tblInventoryReceipt"
      " on ID = ReceiptID where FarsiReceiveDate = '1404/01/01' order by 1, 2";
  EXPECT_GT(Rows(closing).size(), 700U);
  EXPECT_EQ(Rows(closing), Rows(opening));
}

}  // namespace koru::test
