#include "desktop/fields/SelectorRecords.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "platform/sql/DatabaseError.h"
#include "tests/desktop/WindowTools.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TestDatabase.h"

namespace koru {
namespace {

class SelectorRecordsTest : public testing::Test {
 protected:
  SelectorRecordsTest() {
    stores.SetTables("tblInventory", "tblInventoryParent");
    stores.SetConnectionString(database.ConnectionText());
    people.SetConnectionString(database.ConnectionText());
  }

  void AddStore(int id, const std::string& name) {
    database.Execute("insert into tblInventory (ID,Name) values (" + std::to_string(id) + ",'" + name + "')");
  }
  void Under(int id, int child) {
    database.Execute("insert into tblInventoryParent (ID,ChildID) values (" + std::to_string(id) + "," +
                     std::to_string(child) + ")");
  }
  /// The key of the record above the one with this key; 0 at the top.
  [[nodiscard]] static std::int32_t Above(const std::vector<SelectorRecord>& tree, std::int32_t id) {
    const auto found =
        std::find_if(tree.begin(), tree.end(), [id](const auto& record) { return record.id == id; });
    if (found == tree.end()) return -1;
    return found->parent == SelectorRecord::kNoParent ? 0 : tree[static_cast<std::size_t>(found->parent)].id;
  }

  test::TestDatabase database;
  test::RecordingConnector databases{database.Connector()};
  SelectorRecords records{databases};
  test::NoScreen screen;
  Form form{screen, "frm"};
  TreeSelector stores{form, "gmpInventory"};
  PersonSelector people{form, "mptCounter1"};
};

TEST_F(SelectorRecordsTest, Every_store_hangs_under_the_one_directly_above_it) {
  AddStore(1, "كل");
  AddStore(2, "شمال");
  AddStore(3, "سالن");
  AddStore(4, "جنوب");
  for (const auto& [id, child] : {std::pair(1, 2), std::pair(1, 3), std::pair(2, 3), std::pair(1, 4)})
    Under(id, child);
  const auto tree = records.Tree(stores);
  ASSERT_EQ(tree.size(), 4U);
  EXPECT_EQ(Above(tree, 1), 0);
  EXPECT_EQ(Above(tree, 2), 1);
  EXPECT_EQ(Above(tree, 3), 2);
  EXPECT_EQ(Above(tree, 4), 1);
}

TEST_F(SelectorRecordsTest, A_table_that_holds_only_direct_links_gives_the_same_tree) {
  for (int id = 1; id <= 3; ++id) AddStore(id, "انبار");
  Under(1, 2);
  Under(2, 3);
  const auto tree = records.Tree(stores);
  EXPECT_EQ(Above(tree, 2), 1);
  EXPECT_EQ(Above(tree, 3), 2);
}

TEST_F(SelectorRecordsTest, Links_that_run_in_a_circle_lose_no_store) {
  for (int id = 1; id <= 3; ++id) AddStore(id, "انبار");
  Under(1, 2);
  Under(2, 1);
  Under(3, 3);
  Under(77, 3);
  const auto tree = records.Tree(stores);
  ASSERT_EQ(tree.size(), 3U);
  EXPECT_EQ(Above(tree, 3), 0);
  EXPECT_NE(Above(tree, 1) == 0, Above(tree, 2) == 0);
}

TEST_F(SelectorRecordsTest, Stores_stand_in_the_order_of_Persian_lists) {
  AddStore(1, "تهران");
  AddStore(2, "پالايش");
  AddStore(3, "اهواز");
  const auto tree = records.Tree(stores);
  EXPECT_EQ(tree[0].id, 3);
  EXPECT_EQ(tree[1].id, 2);
  EXPECT_EQ(tree[2].id, 1);
}

TEST_F(SelectorRecordsTest, People_are_read_by_name_and_one_connection_serves_all_selectors) {
  database.Execute("insert into tblUser (ID,FullName) values (1,'مريم'),(2,'احمد')");
  const auto list = records.People(people);
  ASSERT_EQ(list.size(), 2U);
  EXPECT_EQ(list[0].name, "احمد");
  people.Select(1);
  EXPECT_EQ(records.NameOf(people), "مريم");
  stores.Select(5);
  EXPECT_EQ(records.NameOf(stores), "");
  EXPECT_EQ(databases.ConnectionTexts().size(), 1U);
}

TEST_F(SelectorRecordsTest, A_selector_that_was_given_no_database_says_so) {
  people.SetConnectionString("0");
  EXPECT_THROW(static_cast<void>(records.People(people)), DatabaseError);
}

TEST_F(SelectorRecordsTest, A_selector_of_leaves_offers_no_store_with_others_under_it_except_one) {
  for (int id = 1; id <= 4; ++id) AddStore(id, "انبار");
  Under(1, 2);
  Under(3, 4);
  const auto offered = [this] {
    std::set<std::int32_t> ids;
    for (const SelectorRecord& record : records.Tree(stores)) {
      if (record.offered) ids.insert(record.id);
    }
    return ids;
  };
  EXPECT_EQ(offered(), (std::set<std::int32_t>{1, 2, 3, 4}));
  stores.OfferOnlyLeaves(3);
  EXPECT_EQ(offered(), (std::set<std::int32_t>{2, 3, 4}));
}

}  // namespace
}  // namespace koru
