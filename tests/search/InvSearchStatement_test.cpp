#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "tests/search/InvSearchTest.h"
#include "tests/search/PlainInvSearch.h"

namespace koru {
namespace {

const std::string kBase =
    "Select ID, Code,isnull(ManualCode,'') as ManualCode,InvName,FullName,isnull(FarsiCreateDate,'') as "
    "FarsiCreateDate,isnull(Notes,'') as Notes,isnull(FarsiFromDate,'') as "
    "FarsiFromDate,isnull(FarsiToDate,'') as "
    "FarsiToDate,Counter1,Counter2,Counter3,Accepter from vwInventoryCounting where ID<>-1";

class InvSearchStatement : public InvSearchTest {
 protected:
  /// What Search sends after the words that every search begins with.
  std::string Condition() {
    Found();
    const std::vector<std::string> sent = NewStatements();
    if (sent.size() != 1 || !sent.front().starts_with(kBase)) return "not one search was sent";
    return sent.front().substr(kBase.size());
  }
  /// Fills the form in, searches, and compares what was sent and that the database understood it.
  void Compare(const PlainInvSearch& criteria) {
    criteria.FillIn(form);
    NewStatements();
    Found();
    EXPECT_EQ(NewStatements(), std::vector<std::string>{criteria.Statement({2, 11, 5})});
    EXPECT_EQ(messages.Texts(), std::vector<std::string>{});
  }
};

TEST_F(InvSearchStatement, Without_criteria_lists_every_counting) {
  EXPECT_EQ(Condition(), "");
  EXPECT_EQ(Keys(), (std::vector<int>{1, 2, 3, 10, 12}));
}

TEST_F(InvSearchStatement, Neither_temporary_nor_final_finds_nothing_whatever_else_is_filled) {
  form.chkTemp.UserCheck(false);
  form.chkFinal.UserCheck(false);
  EXPECT_EQ(Condition(), " and (2=3) ");
  EXPECT_EQ(form.flexSearch.Rows(), 1);
  form.txtid1.UserType("1");
  EXPECT_EQ(Condition(), " and (2=3)  and ID >=1");
  EXPECT_EQ(form.flexSearch.Rows(), 1);
}

TEST_F(InvSearchStatement, Temporary_and_final_countings_are_found_apart) {
  form.chkFinal.UserCheck(false);
  EXPECT_EQ(Found(), std::vector<int>{1});
  form.chkTemp.UserCheck(false);
  form.chkFinal.UserCheck(true);
  EXPECT_EQ(Found(), (std::vector<int>{2, 3, 10, 12}));
}

TEST_F(InvSearchStatement, A_number_box_counts_by_the_number_it_begins_with) {
  form.txtid1.UserType("12abc");
  EXPECT_EQ(Condition(), " and ID >=12");
  EXPECT_EQ(Keys(), std::vector<int>{12});
  form.txtid1.UserType("abc");
  EXPECT_EQ(Condition(), " and ID >=0");
  EXPECT_EQ(Keys().size(), 5U);
}

TEST_F(InvSearchStatement, Manual_numbers_are_trimmed_and_compared_as_texts) {
  form.txtMinG.UserType("  A-1  ");
  EXPECT_EQ(Condition(), " and ManualCode >='A-1'");
  EXPECT_EQ(Keys(), (std::vector<int>{1, 2, 12}));
}

TEST_F(InvSearchStatement, A_store_with_its_children_includes_one_level_of_the_link_table) {
  form.gmpInventory.UserSelect(7);
  EXPECT_EQ(Condition(), " and (InventoryID =7)");
  EXPECT_EQ(Keys(), std::vector<int>{1});
  form.chkAllInvs.UserCheck(true);
  EXPECT_EQ(Condition(),
            " and (InventoryID =7 or InventoryID in (Select ChildID from tblInventoryParent where "
            "tblInventoryParent.ID=7))");
  EXPECT_EQ(Keys(), (std::vector<int>{1, 2}));
}

TEST_F(InvSearchStatement, Dates_people_notes_and_goods_narrow_the_search) {
  form.gdpcreatedate1.UserSet(ParseIso("2024-03-21"));
  form.gdpcreatedate2.UserSet(ParseIso("2024-03-22"));
  EXPECT_EQ(Found(), (std::vector<int>{2, 3}));
  form.Clear();
  form.gdpFromDate2.UserSet(ParseIso("2024-01-01"));
  form.gdpToDate1.UserSet(ParseIso("2024-02-01"));
  EXPECT_EQ(Found(), std::vector<int>{1});
  form.Clear();
  form.mptCounter1.UserSelect(11);
  form.mptConfirmer.UserSelect(2);
  EXPECT_EQ(Found(), std::vector<int>{1});
  form.Clear();
  form.txtNotes.UserType("ماه");
  EXPECT_EQ(Found(), std::vector<int>{3});
  form.Clear();
  form.txtBarCode.UserType("00");
  EXPECT_EQ(Found(), (std::vector<int>{1, 2}));
  form.Clear();
  form.txtName.UserType("دفتر");
  EXPECT_EQ(Found(), (std::vector<int>{1, 2}));
  form.txtCode.UserType("K-1");
  EXPECT_EQ(Found(), std::vector<int>{1});
}

TEST_F(InvSearchStatement, Each_criterion_and_each_two_give_the_statement_to_the_letter) {
  std::mt19937 random(1);  // any values serve
  const auto criteria = CountingCriteria();
  for (std::size_t i = 0; i < criteria.size(); ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      PlainInvSearch plain;
      criteria[i](plain, random);
      if (j < i) criteria[j](plain, random);
      SCOPED_TRACE("criteria " + std::to_string(i) + " and " + std::to_string(j));
      Compare(plain);
    }
  }
}

TEST_F(InvSearchStatement, A_thousand_mixes_give_the_statement_to_the_letter) {
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const auto criteria = CountingCriteria();
  for (int round = 0; round < 1000; ++round) {
    PlainInvSearch plain;
    for (const CountingCriterion& criterion : criteria) {
      if (random() % 4 == 0) criterion(plain, random);
    }
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
    Compare(plain);
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace koru
