#include "counting/LineFinder.h"

#include <gtest/gtest.h>

#include "tests/counting/CountingWorld.h"
#include "tests/support/KeptTexts.h"

namespace koru::test {
namespace {

using Rows = std::vector<int>;

class LineFinderTest : public CountingWorld {
 protected:
  LineFinder& Opened(comInvCounting& control) {
    control.SetOLEConnectionString(database.ConnectionText());
    control.SetUserID(7);
    EXPECT_TRUE(control.View(10));
    return control.CountingForm()->Finder();
  }
  HostServices Kept() {
    HostServices services = Services();
    services.preferences = &settings;
    return services;
  }
  static void Choose(LineFinder& finder, LineKind kind) {
    EXPECT_TRUE(finder.cboLineKind.UserChoose(static_cast<int>(kind)));
  }

  KeptTexts settings;
};

TEST_F(LineFinderTest, Each_entry_of_the_list_is_the_kind_that_it_names) {
  comInvCounting control(*this, Services());
  const LineFinder& finder = Opened(control);
  ASSERT_EQ(finder.cboLineKind.Items().size(), std::size_t{kLineKinds});
  for (int i = 0; i < kLineKinds; ++i)
    EXPECT_EQ(finder.cboLineKind.Items().at(static_cast<std::size_t>(i)).itemData, i);
  EXPECT_EQ(finder.cboLineKind.ListIndex(), 0);
  EXPECT_FALSE(finder.IsOn());
}

TEST_F(LineFinderTest, Typing_choosing_and_showing_all_apply_the_filter_once_each) {
  comInvCounting control(*this, Services());
  LineFinder& finder = Opened(control);
  int applied = 0;
  finder.Applied.Always([&] { ++applied; });
  EXPECT_TRUE(finder.txtFindLine.UserType("هيچ كالايي"));
  EXPECT_EQ(applied, 1);
  EXPECT_EQ(finder.RowsThatFit(), Rows{});
  EXPECT_TRUE(finder.cmdAllLines.Visible());
  Choose(finder, LineKind::NotAccepted);
  EXPECT_EQ(applied, 2);
  EXPECT_TRUE(finder.cmdAllLines.UserClick());
  EXPECT_EQ(applied, 3);
  EXPECT_EQ(finder.txtFindLine.Text(), "");
  EXPECT_EQ(finder.RowsThatFit(), (Rows{1, 2}));
  EXPECT_FALSE(finder.cmdAllLines.Visible());
}

TEST_F(LineFinderTest, The_kind_comes_back_with_the_next_form_and_the_text_does_not) {
  {
    comInvCounting first(*this, Kept());
    LineFinder& finder = Opened(first);
    Choose(finder, LineKind::CountsDisagree);
    finder.txtFindLine.UserType("x");
  }
  comInvCounting second(*this, Kept());
  LineFinder& finder = Opened(second);
  EXPECT_EQ(finder.cboLineKind.Chosen()->itemData, static_cast<int>(LineKind::CountsDisagree));
  EXPECT_EQ(finder.txtFindLine.Text(), "");
  EXPECT_TRUE(finder.cmdAllLines.Visible()) << "the form says that a filter is on";
  finder.cmdAllLines.UserClick();
  comInvCounting third(*this, Kept());
  EXPECT_FALSE(Opened(third).IsOn());
}

TEST_F(LineFinderTest, A_setting_that_cannot_be_read_or_is_no_kind_hides_nothing) {
  settings.values["LineKind"] = std::int32_t{99};
  comInvCounting first(*this, Kept());
  EXPECT_FALSE(Opened(first).IsOn());
  settings.damaged = true;
  comInvCounting second(*this, Kept());
  EXPECT_FALSE(Opened(second).IsOn());
}

TEST_F(LineFinderTest, Saving_and_the_sums_have_the_lines_that_a_filter_hides) {
  comInvCounting control(*this, Services());
  LineFinder& finder = Opened(control);
  frmInvCounting& form = *control.CountingForm();
  const std::string sum = form.txtTotalBelowValue.Text();
  finder.txtFindLine.UserType("هيچ كالايي");
  form.cmdEdit.UserClick();
  form.Timer1.Fire();
  form.cmdTmpSave.UserClick();
  EXPECT_EQ(form.txtTotalBelowValue.Text(), sum);
  EXPECT_TRUE(form.ViewInvCounting(10));
  EXPECT_EQ(form.flexDetail.Rows(), 3);
  EXPECT_EQ(finder.RowsThatFit(), Rows{});
}

}  // namespace
}  // namespace koru::test
