#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "platform/sql/DatabaseError.h"
#include "tests/search/GoodSearchTest.h"
#include "tests/search/PlainGoodSearch.h"

namespace koru {
namespace {

const std::string kAll = " tblGood.Barcode<>'' ";

class GoodConditions : public GoodSearchTest {
 protected:
  /// Fills the form in, compares the condition, and runs it.
  void Compare(const PlainGoodSearch& criteria) {
    criteria.FillIn(form);
    NewStatements();
    EXPECT_NO_THROW(Found());
    EXPECT_EQ(condition.Text(), criteria.Condition({4, 3}, {2, 9}));
    EXPECT_EQ(NewStatements().size(), 1U);
    EXPECT_EQ(messages.Texts(), Texts{});
  }
};

TEST_F(GoodConditions, Without_criteria_every_good_with_a_barcode_is_found) {
  EXPECT_EQ(Condition(), kAll);
  EXPECT_EQ(Found(), (Texts{"100", "200", "300"}));
}

TEST_F(GoodConditions, A_lower_price_alone_leaves_the_upper_one_open) {
  form.txtMinPrice.UserType("1500");
  EXPECT_EQ(Condition(), " tblGood.Barcode<>''  and  RetailPrice >= 1500");
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodConditions, A_star_in_a_precise_title_stands_for_any_text) {
  form.txtTitle.UserType("ab*c");
  EXPECT_EQ(Condition(), kAll + " and  Name like 'ab%c'");
  form.txtTitle.UserType("كتاب*");
  EXPECT_EQ(Found(), (Texts{"100", "200"}));
  form.txtTitle.UserType("كتاب");
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodConditions, An_apostrophe_in_a_title_is_doubled_and_found) {
  form.optNonPrecise.UserChoose();
  form.txtTitle.UserType("O'Neil");
  EXPECT_EQ(Condition(), kAll + " and  Name like '%O''Neil%'");
  EXPECT_EQ(Found(), Texts{"300"});
}

TEST_F(GoodConditions, A_star_in_a_title_that_is_not_precise_is_a_star) {
  form.optNonPrecise.UserChoose();
  form.txtTitle.UserType("كتاب*");
  EXPECT_EQ(Found(), Texts{});
}

TEST_F(GoodConditions, A_currency_joins_itself_with_a_single_and) {
  form.cmbCMoneyType.UserChoose(1);
  EXPECT_EQ(Condition(), kAll + " and CCurrencyTypeID = 3");
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodConditions, A_group_with_its_branches_includes_one_level_of_the_link_table) {
  form.gmpProductGroup.UserSelect(12);
  EXPECT_EQ(Condition(),
            kAll +
                " and  (GoodGroupID=12 or GoodGroupID in (Select ChildID from tblGoodGroupParent where "
                "ID = 12))");
  EXPECT_EQ(Found(), (Texts{"100", "200"}));
  form.chkAllBranches.UserCheck(false);
  EXPECT_EQ(Condition(), kAll + " and  GoodGroupID=12");
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodConditions, A_location_includes_one_level_too) {
  form.gmpLocation.UserSelect(20);
  EXPECT_EQ(Found(), (Texts{"100", "200"}));
  form.chkAllLBranches.UserCheck(false);
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodConditions, A_store_asks_for_the_goods_that_its_receipts_contain) {
  form.gmpInventory.UserSelect(8);
  EXPECT_EQ(Found(), Texts{"200"});
}

TEST_F(GoodConditions, The_producer_and_the_options_narrow_nothing) {
  form.gmpProducer.UserSelect(4);
  form.chkShowExistance.UserCheck(true);
  form.chkShowRialExistance.UserCheck(true);
  EXPECT_EQ(Condition(), kAll);
}

TEST_F(GoodConditions, A_picked_list_takes_the_place_of_the_patterns_but_not_of_the_notes) {
  form.txtBarCode.SetTag("('','100','200')");
  form.txtBarCode.UserType("x");
  form.txtTitle.UserType("x");
  form.txtCode.UserType("x");
  EXPECT_EQ(Condition(), kAll + " and  tblGood.BarCode in ('','100','200')");
  EXPECT_EQ(Found(), (Texts{"100", "200"}));
  form.txtNotes.UserType("نر");
  EXPECT_EQ(Condition(), kAll + " and  tblGood.BarCode in ('','100','200') and  Notes like 'نر%'");
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodConditions, Precise_notes_are_the_beginning_and_other_notes_any_part) {
  form.txtNotes.UserType(" نرم ");
  EXPECT_EQ(Found(), Texts{"100"});
  form.optNonPrecise.UserChoose();
  EXPECT_EQ(Found(), (Texts{"100", "200"}));
}

TEST_F(GoodConditions, Barcode_and_code_are_neither_trimmed_nor_doubled) {
  form.txtBarCode.UserType(" 1*");
  form.txtCode.UserType("K*' ");
  EXPECT_EQ(Condition(), kAll + " and  tblGood.BarCode  like ' 1%' and  tblGood.Code like 'K%' '");
  EXPECT_THROW(Found(), DatabaseError);
  form.optNonPrecise.UserChoose();
  form.txtCode.UserType("");
  EXPECT_EQ(Condition(), kAll + " and  tblGood.BarCode  like '% 1*%'");
}

TEST_F(GoodConditions, The_discount_boxes_work_by_exclusion) {
  form.chkKnownDiscount.UserCheck(false);
  EXPECT_EQ(Found(), Texts{"100"});
  form.chkUnKnownDiscount.UserCheck(false);
  EXPECT_EQ(Found(), Texts{});
  form.chkKnownDiscount.UserCheck(true);
  EXPECT_EQ(Found(), (Texts{"200", "300"}));
}

TEST_F(GoodConditions, A_bound_that_is_no_number_counts_as_0) {
  form.txtMinDiscountPercent.UserType("abc");
  form.txtMaxQty.SetText("  ");
  EXPECT_EQ(Condition(), kAll + " and  TotalQty <= 0 and  StandardDiscountPercent >= 0");
}

TEST_F(GoodConditions, Each_criterion_and_each_two_give_the_condition_to_the_letter) {
  std::mt19937 random(1);  // any values serve
  const auto criteria = GoodCriteria();
  for (std::size_t i = 0; i < criteria.size(); ++i) {
    for (std::size_t j = 0; j <= i; ++j) {
      for (const bool precise : {true, false}) {
        PlainGoodSearch plain;
        plain.precise = precise;
        criteria[i](plain, random);
        if (j < i) criteria[j](plain, random);
        SCOPED_TRACE("criteria " + std::to_string(i) + " and " + std::to_string(j));
        Compare(plain);
      }
    }
  }
}

TEST_F(GoodConditions, A_thousand_mixes_give_the_condition_to_the_letter) {
  const unsigned seed = std::random_device{}();
  std::cout << "seed " << seed << '\n';
  std::mt19937 random(seed);
  const auto criteria = GoodCriteria();
  for (int round = 0; round < 1000; ++round) {
    PlainGoodSearch plain;
    for (const GoodCriterion& criterion : criteria) {
      if (random() % 4 == 0) criterion(plain, random);
    }
    SCOPED_TRACE("seed " + std::to_string(seed) + ", round " + std::to_string(round));
    Compare(plain);
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace koru
