#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/search/GoodSearchTest.h"

namespace koru {
namespace {

constexpr int kF3 = 114;
constexpr const char* kSeveral = "چند \u06A9الا";

class GoodsPickingOnTheForm : public GoodSearchTest {
 protected:
  void SetUp() override {
    GoodSearchTest::SetUp();
    picker.name = "كتاب";
    picker.barcode = "100";
    picker.code = "K-1";
  }
  /// Barcode, title and code after the user has picked that list.
  Texts Pick(const std::string& list, TextBox& from) {
    picker.list = list;
    from.UserKey({kF3, 0});
    return {form.txtBarCode.Text(), form.txtTitle.Text(), form.txtCode.Text()};
  }
};

TEST_F(GoodsPickingOnTheForm, One_good_fills_barcode_title_and_code) {
  for (TextBox* from : {&form.txtBarCode, &form.txtTitle, &form.txtCode}) {
    form.Clear();
    EXPECT_EQ(Pick("('','100')", *from), (Texts{"100", "كتاب", "K-1"}));
    EXPECT_EQ(form.txtBarCode.Tag(), "('','100')");
  }
  EXPECT_EQ(picker.shown, 3);
  EXPECT_TRUE(picker.several);
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodsPickingOnTheForm, Several_goods_show_that_they_are_several_and_only_the_list_is_searched) {
  EXPECT_EQ(Pick("('','100','300')", form.txtCode), (Texts{kSeveral, kSeveral, kSeveral}));
  EXPECT_EQ(Found(), (Texts{"100", "300"}));
  EXPECT_EQ(condition.Text(), " tblGood.Barcode<>''  and  tblGood.BarCode in ('','100','300')");
}

TEST_F(GoodsPickingOnTheForm, A_list_is_of_one_good_when_its_last_comma_is_its_fourth_character) {
  EXPECT_EQ(Pick("('100')", form.txtCode)[0], kSeveral);
  EXPECT_EQ(Pick("( '','100')", form.txtCode)[0], kSeveral);
  EXPECT_EQ(Pick("('','1,0')", form.txtCode)[0], kSeveral);
  EXPECT_EQ(Pick("('1','2')", form.txtCode)[0], kSeveral);
  EXPECT_EQ(Pick("('',)", form.txtCode)[0], "100");
  EXPECT_EQ(Pick("گچ۵,", form.txtCode)[0], "100");  // characters count, not bytes
}

TEST_F(GoodsPickingOnTheForm, Nothing_picked_shows_what_the_picker_shows_and_searches_by_the_patterns) {
  EXPECT_EQ(Pick("('','100','300')", form.txtCode)[0], kSeveral);
  picker.name = picker.code = "";
  EXPECT_EQ(Pick("", form.txtCode), (Texts{"100", "", ""}));
  EXPECT_EQ(form.txtBarCode.Tag(), "");
  EXPECT_EQ(Found(), Texts{"100"});
}

TEST_F(GoodsPickingOnTheForm, The_list_stays_until_New_search) {
  Pick("('','100')", form.txtBarCode);
  form.txtBarCode.UserType("200");
  form.txtTitle.UserType("");
  form.txtCode.UserType("");
  EXPECT_EQ(Found(), Texts{"100"});
  form.cmdNewSearch.UserClick();
  form.txtBarCode.UserType("200");
  EXPECT_EQ(Found(), Texts{"200"});
}

/// A picker that keeps what was picked until the next pick, as the suite's does; without one the user gives
/// up.
class KeepingPicker : public ScenarioPicker {
 public:
  explicit KeepingPicker(PickerScenario& scenario) : ScenarioPicker(scenario), scenario_(scenario) {}
  void Show() override {
    ScenarioPicker::Show();
    if (!scenario_.list.empty()) kept_ = scenario_;
  }
  [[nodiscard]] std::string List() const override { return kept_.list; }
  [[nodiscard]] std::string Name() const override { return kept_.name; }
  [[nodiscard]] std::string Barcode() const override { return kept_.barcode; }
  [[nodiscard]] std::string Code() const override { return kept_.code; }

 private:
  PickerScenario& scenario_;
  PickerScenario kept_;
};

TEST_F(GoodsPickingOnTheForm, Giving_up_after_New_search_brings_nothing_back_and_keeps_what_was_typed) {
  components.Unregister(GoodsPicker::kClassName);
  components.Register(std::string(GoodsPicker::kClassName),
                      [this] { return std::make_unique<KeepingPicker>(picker); });
  frmGoodSearch search{shared, [](const SqlText& /*condition*/) {}};
  search.Load(7);
  picker.list = "('','100')";
  search.txtCode.UserKey({kF3, 0});
  ASSERT_EQ(search.txtBarCode.Tag(), "('','100')");

  picker = PickerScenario();
  search.cmdNewSearch.UserClick();
  search.txtTitle.UserType("كتابچه");
  search.txtCode.UserKey({kF3, 0});
  EXPECT_EQ(picker.shown, 1);
  EXPECT_EQ(search.txtBarCode.Tag(), "");
  EXPECT_EQ(search.txtBarCode.Text(), "");
  EXPECT_EQ(search.txtTitle.Text(), "كتابچه");
  EXPECT_EQ(picker.connection, database.ConnectionText()) << "the fresh picker is connected";
  EXPECT_EQ(picker.inventory, 7) << "and offers the goods of the same store";
}

TEST_F(GoodsPickingOnTheForm, Other_keys_and_other_fields_show_no_picker) {
  form.txtNotes.UserKey({kF3, 0});
  form.txtMinPrice.UserKey({kF3, 0});
  form.txtCode.UserKey({113, 0});
  EXPECT_EQ(picker.shown, 0);
}

TEST_F(GoodsPickingOnTheForm, A_suite_without_the_picker_picks_nothing) {
  components.Unregister(GoodsPicker::kClassName);
  chosenStore = 7;
  SqlText other;
  frmGoodSearch fresh{shared, [&other](SqlText text) { other = std::move(text); }};
  fresh.Load(chosenStore);
  EXPECT_EQ(fresh.gmpInventory.SelectedID(), 7);
  fresh.txtCode.UserType("K-1");
  EXPECT_TRUE(fresh.txtCode.UserKey({kF3, 0}));
  EXPECT_EQ(fresh.txtCode.Text(), "K-1");
  EXPECT_EQ(fresh.txtBarCode.Tag(), "");
  EXPECT_TRUE(messages.Shown().empty());
}

}  // namespace
}  // namespace koru
