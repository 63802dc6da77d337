#include "siblings/goods/GoodsFinder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/TestDatabase.h"

namespace koru {
namespace {

class GoodsFinderTest : public testing::Test {
 protected:
  GoodsFinderTest() {
    base.Execute(
        "insert into tblInventory (ID,Name) values (1,'انبار مركزي'),(2,'سردخانه'),(3,'فروشگاه');"
        "insert into tblInventoryParent (ID,ChildID) values (1,2);"
        "insert into tblGood (Barcode,Code,Name) values ('','X','بي باركد برنج'),"
        "('626100','A-1','برنج طارم'),('626200','A-10','برنج هاشمي 5 كيلويي'),"
        "('626300',NULL,'روغن 100% طبيعي'),('A-1x','Z_9','چاي O''Neil'),('626400','B[1]','چاي')");
    base.Execute(
        "insert into tblInventoryReceipt (ID,InventoryID) values (1,2),(2,3);"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode) values (1,' 626100 '),(2,'626300');"
        "insert into tblInventoryDispatch (ID,InventoryID) values (1,2);"
        "insert into tblInventoryDispatchDetail (DispatchID,Barcode) values (1,'626400')");
  }

  std::vector<std::string> Found(const std::string& typed) {
    std::vector<std::string> barcodes;
    for (const PickedGood& good : finder.Find(typed).goods) barcodes.push_back(good.barcode);
    return barcodes;
  }

  using Barcodes = std::vector<std::string>;

  test::TestDatabase base;
  std::unique_ptr<Database> database = base.Connector().Connect(base.ConnectionText());
  GoodsFinder finder{*database};
};

TEST_F(GoodsFinderTest, Every_word_must_occur_in_name_code_or_barcode) {
  EXPECT_EQ(Found("برنج"), (Barcodes{"626100", "626200"}));
  EXPECT_EQ(Found("  هاشمي   برنج "), Barcodes{"626200"});
  EXPECT_EQ(Found("برنج 6261"), Barcodes{"626100"});
  EXPECT_EQ(Found("برنج چاي"), Barcodes{});
}

TEST_F(GoodsFinderTest,
       Letters_and_digits_of_any_keyboard_find_a_good_where_the_collation_takes_them_as_equal) {
  const bool areEqual = base.TakesKeyboardsAsEqual();
  EXPECT_EQ(Found(areEqual ? "چای" : "چاي"), (Barcodes{"626400", "A-1x"}));
  EXPECT_EQ(Found(areEqual ? "۶۲۶۲" : "6262"), Barcodes{"626200"});
}

TEST_F(GoodsFinderTest, The_good_with_exactly_that_code_or_barcode_comes_first) {
  EXPECT_EQ(Found("A-1").front(), "626100");
  EXPECT_EQ(Found("A-10"), Barcodes{"626200"});
  EXPECT_EQ(Found("a-1X").front(), "A-1x");
}

TEST_F(GoodsFinderTest, Wildcards_and_apostrophes_are_taken_literally) {
  EXPECT_EQ(Found("100%"), Barcodes{"626300"});
  EXPECT_EQ(Found("Z_9"), Barcodes{"A-1x"});
  EXPECT_EQ(Found("B[1]"), Barcodes{"626400"});
  EXPECT_EQ(Found("O'Neil"), Barcodes{"A-1x"});
  EXPECT_EQ(Found("'; delete tblGood --"), Barcodes{});
  EXPECT_EQ(base.Scalar("select count(*) from tblGood"), "6");
}

TEST_F(GoodsFinderTest, A_good_without_barcode_is_never_offered) {
  EXPECT_EQ(Found("بي باركد"), Barcodes{});
  EXPECT_EQ(Found("").size(), 5U);
}

TEST_F(GoodsFinderTest, A_store_offers_what_it_or_a_store_below_it_has_moved) {
  finder.OnlyOfStore(3);
  EXPECT_EQ(Found(""), Barcodes{"626300"});
  finder.OnlyOfStore(1);
  EXPECT_EQ(Found("626"), (Barcodes{"626100", "626400"})) << "received with blanks around it, and dispatched";
  finder.OnlyOfStore(GoodsFinder::kAllStores);
  EXPECT_EQ(Found("").size(), 5U);
}

TEST_F(GoodsFinderTest, A_long_list_is_cut_and_says_so) {
  base.InsertRows("tblGood (Barcode,Name)", 1, 5'000,
                  [](int i) { return "'N" + std::to_string(i) + "','كالا " + std::to_string(i) + "'"; });
  const FoundGoods found = finder.Find("كالا");
  EXPECT_EQ(found.goods.size(), GoodsFinder::kMaxListed);
  EXPECT_TRUE(found.more);
  EXPECT_FALSE(finder.Find("كالا 4999").more);
  finder.OnlyOfStore(3);
  EXPECT_TRUE(finder.Find("كالا").more) << "not all of them were checked";
}

}  // namespace
}  // namespace koru
