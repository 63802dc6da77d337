#include "tests/database/SampleFixture.h"

namespace koru::test {
namespace {

using SamplePeople = SampleTest;
using SampleStores = SampleTest;
using SampleSuite = SampleTest;

}  // namespace

TEST_F(SamplePeople, Each_user_lacks_what_the_list_says) {
  EXPECT_EQ(Number("select count(*) from tblUser"), 12);
  const std::string lacking =
      "select tblUser.ID, group_concat(wanted.column1, ',') from tblUser, (values (806), (80601), (80602), "
      "(80603),"
      " (80604), (80605), (80606), (80607)) as wanted where not exists (select 1 from tblPelinUserPermission "
      "where"
      " UserID = tblUser.ID and FormPermissionID = wanted.column1) group by tblUser.ID";
  EXPECT_EQ(Rows(lacking), (Texts{"2|806,80601,80602,80603,80604,80605,80606,80607", "3|80606", "4|80603",
                                  "5|806", "6|80601", "7|80602", "8|80604", "9|80605", "10|80607"}));
}

TEST_F(SamplePeople, Two_users_may_not_work_in_every_store) {
  EXPECT_EQ(Rows("select tblUser.ID, group_concat(InventoryID, ',') from tblUser left join tblInventoryUser"
                 " on UserID = tblUser.ID group by tblUser.ID having count(InventoryID) < 10"),
            (Texts{"11|3,4", "12|"}));
}

TEST_F(SampleStores, One_default_store_that_has_no_children) {
  EXPECT_EQ(Rows("select ID from tblInventory where IsDefault = 1"), Texts{"3"});
  EXPECT_EQ(Number("select count(*) from tblInventory where ParentID = 3"), 0);
  EXPECT_EQ(Number("select count(*) from tblInventory"), 10);
}

TEST_F(SampleStores, Every_closure_table_agrees_with_the_parents) {
  for (const auto& [master, closure] :
       {std::pair("tblInventory", "tblInventoryParent"), std::pair("tblBPLocation", "tblBPLocationChilds"),
        std::pair("tblGoodGroup", "tblGoodGroupParent"), std::pair("tblGoodScale", "tblGoodScaleParent")}) {
    const std::string expected =
        std::string("with recursive below (ID, ChildID) as (select ParentID, ID from ") + master +
        " where ParentID is not null union all select master.ParentID, ChildID" + " from below join " +
        master + " as master on master.ID = below.ID" +
        " where master.ParentID is not null) select ID, ChildID from below order by 1, 2";
    const Texts stored = Rows(std::string("select ID, ChildID from ") + closure + " order by 1, 2");
    EXPECT_FALSE(stored.empty()) << closure;
    EXPECT_EQ(stored, Rows(expected)) << closure;
  }
}

TEST_F(SampleStores, The_tree_of_stores_has_three_levels) {
  EXPECT_EQ(Rows("select ChildID from tblInventoryParent where ID = 1 order by 1"),
            (Texts{"2", "3", "4", "5", "6"}));
  EXPECT_EQ(Rows("select ChildID from tblInventoryParent where ID = 2 order by 1"), (Texts{"3", "4"}));
}

TEST_F(SampleSuite, The_form_is_not_modal_and_has_three_reports) {
  EXPECT_EQ(Rows("select Value from tblPelinSystemParameters where ID = 123"), Texts{"0"});
  EXPECT_EQ(Rows("select Title, FilePath from tblPelinReportTemplate where FormTypeID = 806 order by ID"),
            (Texts{"شمارش با مغايرت و مبلغ|reports/counting.rpt.txt",
                   "برگة شمارش انبار (بدون موجودي)|reports/counting-sheet.rpt.txt",
                   "فهرست مغايرتها|reports/differences.rpt.txt"}));
  EXPECT_EQ(Text("select Name from vwPelinCompany"), "شركت پخش آفتاب كوير");
  EXPECT_EQ(Text("select coalesce(BasePath, '') from vwPelinBasePath"), "") << "the program's own reports";
}

}  // namespace koru::test
