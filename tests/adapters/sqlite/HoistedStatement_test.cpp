#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/NormalizedStatement.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

using Numbers = std::vector<int>;

class HoistedStatementTest : public testing::Test {
 protected:
  HoistedStatement Translated(const std::string& statement) {
    return TranslateHoisted(Normalize(statement).text, connection_);
  }
  test::TestFile database_;
  SqliteConnection connection_{database_.File(), SqliteConnection::Mode::Existing, std::chrono::seconds(0)};
};

TEST_F(HoistedStatementTest, The_documents_of_a_sum_are_hoisted) {
  const HoistedStatement translated = Translated(
      "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
      "LTrim(RTrim(Barcode))='A' and ReceiptID in (select ID from tblInventoryReceipt where "
      "ReceiveDate>='2024-01-01' and  Code is not NULL and (InventoryID=4 or InventoryID in (Select ChildID "
      "from "
      "tblInventoryParent Where ID=4)))");
  EXPECT_EQ(
      translated.sql,
      "Select ifnull(sum(ifnull(Qty,?1)),?2) as Qty from tblInventoryReceiptDetail where "
      "LTrim(RTrim(Barcode))=?3 collate KORU and koru_key_rank(?7,tblInventoryReceiptDetail.ReceiptID)");
  ASSERT_EQ(translated.subqueries.size(), 1U);
  EXPECT_EQ(
      translated.subqueries[0].sql,
      "select ID from tblInventoryReceipt where ReceiveDate>=?1 and Code is not NULL and (InventoryID in "
      "(select ?2 union all Select ChildID from tblInventoryParent Where ID=?3))");
  EXPECT_EQ(translated.subqueries[0].literals, (Numbers{4, 5, 6}));
  EXPECT_EQ(translated.subqueries[0].parameter, 7);
}

TEST_F(HoistedStatementTest, The_documents_of_a_rate_are_hoisted_with_its_order) {
  const HoistedStatement translated = Translated(
      "Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where "
      "ID=DispatchID "
      "and Barcode='A' and Isnull(Value,0)>0 and ReceiveDate<='2024-01-01' and  Code is not NULL Order By "
      "ReceiveDate Desc");
  EXPECT_EQ(translated.sql,
            "Select ifnull(Value,?1) as Value from tblInventoryDispatchDetail where "
            "koru_key_rank(?6,tblInventoryDispatchDetail.DispatchID) and "
            "Barcode=?2 and ifnull(Value,?3)>?4 order by "
            "koru_key_rank(?6,tblInventoryDispatchDetail.DispatchID),tblInventoryDispatchDetail.rowid Desc");
  ASSERT_EQ(translated.subqueries.size(), 1U);
  EXPECT_EQ(translated.subqueries[0].sql,
            "select ID from tblInventoryDispatch where ReceiveDate<=?1 and Code is not NULL");
  EXPECT_EQ(translated.subqueries[0].order, " Order By ReceiveDate Desc,ID Desc");
  EXPECT_EQ(translated.subqueries[0].literals, Numbers{5});
  EXPECT_EQ(translated.subqueries[0].parameter, 6);
}

TEST_F(HoistedStatementTest, A_sum_and_a_rate_of_the_same_documents_share_a_key_set) {
  const std::string documents =
      "ReceiveDate>='2024-01-01' and ReceiveDate<='2024-12-31' and  Code is not NULL and (InventoryID=4 or "
      "InventoryID in (Select ChildID from tblInventoryParent Where ID=4";
  const HoistedStatement sum = Translated(
      "Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
      "LTrim(RTrim(Barcode))='A' and DispatchID in (select ID from tblInventoryDispatch where " +
      documents + ")))");
  const HoistedStatement rate = Translated(
      "Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where "
      "ID=DispatchID and Barcode='A' and Isnull(Value,0)>0 and " +
      documents + ")) Order By ReceiveDate Desc");
  ASSERT_EQ(sum.subqueries.size(), 1U);
  ASSERT_EQ(rate.subqueries.size(), 1U);
  EXPECT_EQ(sum.subqueries[0].sql, rate.subqueries[0].sql);
  EXPECT_EQ(sum.subqueries[0].order, "");
}

TEST_F(HoistedStatementTest, A_store_and_its_children_become_one_list_also_for_a_rate) {
  const HoistedStatement rate = Translated(
      "Select isnull(Value,0) as Value from tblInventoryDispatchDetail,tblInventoryDispatch Where "
      "ID=DispatchID and Barcode='A' and (InventoryID=4 or InventoryID in (Select ChildID from "
      "tblInventoryParent Where ID=5)) and Code is not NULL");
  ASSERT_EQ(rate.subqueries.size(), 1U);
  EXPECT_EQ(rate.subqueries[0].sql,
            "select ID from tblInventoryDispatch where (InventoryID in (select ?1 union all Select ChildID "
            "from tblInventoryParent Where ID=?2)) and Code is not NULL");
  EXPECT_EQ(rate.subqueries[0].literals, (Numbers{3, 4}));
}

TEST_F(HoistedStatementTest, Other_alternatives_stay_as_they_are) {
  const std::string children = "(Select ChildID from tblInventoryParent)";
  const std::vector<std::string> unchanged = {
      "(InventoryID=4 or Code in " + children + ")",           // two columns
      "(InventoryID='4' or InventoryID in " + children + ")",  // a text
      "(Notes=4 or Notes in " + children + ")",                // a column of texts
      "(InventoryID<>4 or InventoryID in " + children + ")",
      "(InventoryID=4 and InventoryID in " + children + ")",
      "(InventoryID=4 or InventoryID not in " + children + ")",
      "(InventoryID=4 or InventoryID in (1,2))",
      "(Code=1 and InventoryID=4 or InventoryID in " + children + ")",
      "(InventoryID=4 or InventoryID in " + children + " and Code=1)",
      "(InventoryID=4 or InventoryID in (Select ChildID from tblInventoryParent order by ID))",
      "(InventoryID=4 or InventoryID in (Select top 1 ChildID from tblInventoryParent))",
      "(InventoryID=4 or InventoryID in (Select 5 except Select ChildID from tblInventoryParent))",
      // A column of the nested select's table.
      "Code in (Select ID from tblInventory where (ID=4 or ID in " + children + "))",
  };
  for (const std::string& condition : unchanged) {
    const HoistedStatement translated = Translated(
        "select Qty from tblInventoryReceiptDetail where ReceiptID in (select ID from tblInventoryReceipt "
        "where " +
        condition + ")");
    ASSERT_EQ(translated.subqueries.size(), 1U) << condition;
    EXPECT_EQ(translated.subqueries[0].sql.find("union all"), std::string::npos) << condition;
  }
}

TEST_F(HoistedStatementTest, A_subquery_is_hoisted_only_where_its_term_decides_on_every_row) {
  const std::string inner = "(select ID from tblInventoryReceipt where Code=1)";
  const std::string details = "select Qty from tblInventoryReceiptDetail where ";
  const std::vector<std::string> unchanged = {
      // Joined by `or`, or negated.
      details + "Qty=1 or ReceiptID in " + inner,
      details + "Qty=1 and ReceiptID in " + inner + " or Qty=2",
      details + "not ReceiptID in " + inner,
      details + "ReceiptID not in " + inner,
      details + "(Qty=1 or ReceiptID in " + inner + ")",
      // The column is of no table, of a view, of one of several tables, or of the inner table.
      "select ID from vwInventoryCounting where ID in " + inner,
      "select Qty from tblInventoryReceiptDetail,tblUser where ReceiptID in " + inner,
      "select ID from tblInventoryReceipt where ID in " + inner,
      // No key, or a part of one.
      "select ID from tblInventory where ID in (select InventoryID from tblInventoryReceipt where Code=1)",
      "select ID from tblGoodScale where ID in (select ScaleID from tblGoodSaleScale where ScaleID=1)",
      // Rows that depend on each other.
      details + "ReceiptID in (select ID from tblInventoryReceipt where Code=1 group by ID)",
  };
  EXPECT_EQ(Translated(details + "ReceiptID in " + inner).subqueries.size(), 1U);
  for (const std::string& statement : unchanged) {
    const HoistedStatement translated = Translated(statement);
    EXPECT_TRUE(translated.subqueries.empty()) << statement;
    EXPECT_EQ(translated.sql, TranslateOrdered(Normalize(statement).text, connection_)) << statement;
  }
}

TEST_F(HoistedStatementTest, Statements_that_need_more_of_the_documents_are_not_hoisted) {
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
      "select Qty" + join + " and Qty>Code",               // a term on both
      "select Qty" + join + " and ReceiptID=ID",           // two joins
      "select Qty" + join + " or Code=2",                  // joined by or
      "select Qty from tblInventoryReceiptDetail,tblInventoryReceipt where Code=1",        // no join
      "select Qty from tblInventoryReceiptDetail,tblInventoryReceipt where ID=ReceiptID",  // all of them
      "select Qty from tblInventoryReceiptDetail,tblInventoryReceipt where ID=Barcode and Code=1",  // a text
      "select Qty from tblInventoryReceiptDetail,tblGood where tblGood.Barcode='A' and ReceiptID=1",
      "select Name from tblUser where ID=1",
  };
  for (const std::string& statement : unchanged) {
    const HoistedStatement translated = Translated(statement);
    EXPECT_TRUE(translated.subqueries.empty()) << statement;
    EXPECT_EQ(translated.sql, TranslateOrdered(Normalize(statement).text, connection_)) << statement;
  }
}

TEST_F(HoistedStatementTest, A_correlated_subquery_is_not_hoisted) {
  const std::string statement =
      "select Qty from tblInventoryReceiptDetail where ReceiptID in (select ID from tblInventoryReceipt "
      "where "
      "Code=Qty)";
  EXPECT_TRUE(Translated(statement).subqueries.empty());
  EXPECT_EQ(Translated(statement).sql, TranslateOrdered(Normalize(statement).text, connection_));
}

}  // namespace
}  // namespace koru
