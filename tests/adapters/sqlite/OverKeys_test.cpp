#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/StatementShape.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

using Numbers = std::vector<int>;

class OverKeys : public testing::Test {
 protected:
  ShapeOverKeys Translated(const std::string& statement) {
    return TranslateOverKeys(ReadShape(statement).text, connection_);
  }
  test::TestFile database_;
  SqliteConnection connection_{database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0)};
};

TEST_F(OverKeys, The_documents_of_a_sum_are_selected_by_themselves) {
  const ShapeOverKeys translated = Translated(
      "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
      "LTrim(RTrim(Barcode))='A' and ReceiptID in (select ID from tblInventoryReceipt where "
      "ReceiveDate>='2024-01-01' and  Code is not NULL and (InventoryID=4 or InventoryID in (Select ChildID "
      "from "
      "tblInventoryParent Where ID=4)))");
  EXPECT_EQ(translated.sql,
            "Select ifnull(sum(ifnull(Qty,?1)),?2) as Qty from tblInventoryReceiptDetail where "
            "LTrim(RTrim(Barcode))=?3 collate KORU and KoruRank(?7,tblInventoryReceiptDetail.ReceiptID)");
  ASSERT_EQ(translated.selections.size(), 1U);
  EXPECT_EQ(
      translated.selections[0].sql,
      "select ID from tblInventoryReceipt where ReceiveDate>=?1 and Code is not NULL and (InventoryID in "
      "(select ?2 union all Select ChildID from tblInventoryParent Where ID=?3))");
  EXPECT_EQ(translated.selections[0].literals, (Numbers{4, 5, 6}));
  EXPECT_EQ(translated.selections[0].parameter, 7);
}

TEST_F(OverKeys, The_documents_of_a_rate_are_selected_in_its_order) {
  const ShapeOverKeys translated = Translated(
      "Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where "
      "ID=DispatchID "
      "and Barcode='A' and Isnull(Value,0)>0 and ReceiveDate<='2024-01-01' and  Code is not NULL Order By "
      "ReceiveDate Desc");
  EXPECT_EQ(
      translated.sql,
      "Select ifnull(Value,?1) as Value from tblInventoryDispatchDetail where "
      "KoruRank(?6,tblInventoryDispatchDetail.DispatchID) and "
      "LTrim(RTrim(tblInventoryDispatchDetail.Barcode)) = LTrim(RTrim(?2)) collate KORU and +Barcode=?2 and "
      "ifnull(Value,?3)>?4 order by KoruRank(?6,tblInventoryDispatchDetail.DispatchID)");
  ASSERT_EQ(translated.selections.size(), 1U);
  EXPECT_EQ(translated.selections[0].sql,
            "select ID from tblInventoryDispatch where ReceiveDate<=?1 and Code is not NULL");
  EXPECT_EQ(translated.selections[0].order, " Order By ReceiveDate Desc,ID");
  EXPECT_EQ(translated.selections[0].literals, Numbers{5});
  EXPECT_EQ(translated.selections[0].parameter, 6);
}

TEST_F(OverKeys, A_sum_and_a_rate_of_the_same_documents_share_their_keys) {
  const std::string documents =
      "ReceiveDate>='2024-01-01' and ReceiveDate<='2024-12-31' and  Code is not NULL and (InventoryID=4 or "
      "InventoryID in (Select ChildID from tblInventoryParent Where ID=4";
  const ShapeOverKeys sum = Translated(
      "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
      "LTrim(RTrim(Barcode))='A' and DispatchID in (select ID from tblInventoryDispatch where " +
      documents + ")))");
  const ShapeOverKeys rate = Translated(
      "Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where "
      "ID=DispatchID and Barcode='A' and Isnull(Value,0)>0 and " +
      documents + ")) Order By ReceiveDate Desc");
  ASSERT_EQ(sum.selections.size(), 1U);
  ASSERT_EQ(rate.selections.size(), 1U);
  EXPECT_EQ(sum.selections[0].sql, rate.selections[0].sql);
  EXPECT_EQ(sum.selections[0].order, "");
}

TEST_F(OverKeys, Stores_that_are_asked_for_in_another_way_are_selected_as_they_were_written) {
  for (const std::string condition :
       {"(InventoryID=4 or Code in (Select ChildID from tblInventoryParent))",
        "(InventoryID='4' or InventoryID in (Select ChildID from tblInventoryParent))",
        "(InventoryID=4 or InventoryID in (Select ChildID from tblInventoryParent) or Code=3)",
        "(Code=2 and InventoryID=4 or InventoryID in (Select ChildID from tblInventoryParent))",
        "(FarsiReceiveDate=4 or FarsiReceiveDate in (Select ChildID from tblInventoryParent))"}) {
    const ShapeOverKeys translated = Translated(
        "select Qty from tblInventoryReceiptDetail where ReceiptID in (select ID from tblInventoryReceipt "
        "where " +
        condition + ")");
    ASSERT_EQ(translated.selections.size(), 1U) << condition;
    EXPECT_EQ(translated.selections[0].sql.find("union"), std::string::npos) << condition;
  }
}

TEST_F(OverKeys, Statements_that_need_more_of_the_documents_stay_as_they_are) {
  const std::string join =
      " from tblInventoryReceiptDetail,tblInventoryReceipt where ID=ReceiptID and Code=1";
  const std::vector<std::string> unchanged = {
      "select Qty,Code" + join,                            // a column of the document is asked for
      "select *" + join,                                   // all of them are
      "select distinct Qty" + join,                        // rows are put together
      "select top 1 Qty" + join,                           //
      "select sum(Qty)" + join + " group by Barcode",      //
      "select Qty" + join + " order by Qty",               // another order
      "select Qty" + join + " order by Code,ReceiveDate",  //
      "select Qty" + join + " and Qty>Code",               // a part about both
      "select Qty" + join + " and ReceiptID=ID",           // two joins
      "select Qty" + join + " or Code=2",                  // joined by or
      "select Qty from tblInventoryReceiptDetail,tblInventoryReceipt where Code=1",        // no join
      "select Qty from tblInventoryReceiptDetail,tblInventoryReceipt where ID=ReceiptID",  // all of them
      "select Qty from tblInventoryReceiptDetail,tblInventoryReceipt where ID=Barcode and Code=1",  // a text
      "select Qty from tblInventoryReceiptDetail,tblGood where tblGood.Barcode='A' and ReceiptID=1",
      "select Name from tblUser where ID=1",
  };
  for (const std::string& statement : unchanged) {
    const ShapeOverKeys translated = Translated(statement);
    EXPECT_TRUE(translated.selections.empty()) << statement;
    EXPECT_EQ(translated.sql, TranslateShape(ReadShape(statement).text, connection_)) << statement;
  }
}

TEST_F(OverKeys, A_selection_that_looks_at_the_row_around_it_stays_in_its_place) {
  const std::string statement =
      "select Qty from tblInventoryReceiptDetail where ReceiptID in (select ID from tblInventoryReceipt "
      "where "
      "Code=Qty)";
  EXPECT_TRUE(Translated(statement).selections.empty());
  EXPECT_EQ(Translated(statement).sql, TranslateShape(ReadShape(statement).text, connection_));
}

}  // namespace
}  // namespace koru
