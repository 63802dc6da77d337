#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Label.h"
#include "platform/controls/MenuItem.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/Timer.h"
#include "tests/support/FakeScreen.h"

namespace koru {
namespace {

struct SmallForm : Form {
  explicit SmallForm(Screen& screen) : Form(screen, "frmSmall") {}
  TextBox txtName{*this, "txtName"};
  Button cmdSave{*this, "cmdSave"};
  CheckBox chkAll{*this, "chkAll"};
  ComboBox cmbKind{*this, "cmbKind"};
  DateBox gdpDay{*this, "gdpDay"};
  TreeSelector gmpStore{*this, "gmpStore"};
  PersonSelector mptPerson{*this, "mptPerson"};
  OptionGroup precision;
  OptionButton optPrecise{*this, "optPrecise", precision};
  OptionButton optNonPrecise{*this, "optNonPrecise", precision};
  MenuItem mnuSave{*this, "mnuSave"};
  Timer Timer1{*this, "Timer1"};
  ProgressBar pgbStatus{*this, "pgbStatus"};
  Label lblID{*this, "lblID"};
};

class Controls : public testing::Test {
 protected:
  test::FakeScreen screen;
  SmallForm form{screen};
};

TEST_F(Controls, Are_found_by_name_regardless_of_case) {
  EXPECT_EQ(form.Find("TXTNAME"), &form.txtName);
  EXPECT_EQ(form.Find("nothing"), nullptr);
  EXPECT_EQ(form.Controls().front(), &form.txtName);
}

TEST_F(Controls, A_text_box_takes_no_more_than_its_length_from_the_user) {
  form.txtName.SetMaxLength(3);
  form.txtName.UserType("شمارش");
  EXPECT_EQ(form.txtName.Text(), "شما");
  form.txtName.SetText("as it was stored");
  EXPECT_EQ(form.txtName.Text(), "as it was stored");
}

TEST_F(Controls, A_change_is_reported_once_and_a_setter_that_changes_nothing_not_at_all) {
  int changes = 0;
  const Subscription watching = form.txtName.StateChanged.Subscribe([&] { ++changes; });
  form.txtName.SetText("a");
  form.txtName.SetText("a");
  form.txtName.SetEnabled(true);
  EXPECT_EQ(changes, 1);
}

TEST_F(Controls, The_program_changes_a_box_without_raising_the_events_of_the_user) {
  int typed = 0;
  form.txtName.Change.Always([&] { ++typed; });
  form.txtName.SetText("a");
  EXPECT_EQ(typed, 0);
  EXPECT_TRUE(form.txtName.UserType("b"));
  EXPECT_EQ(typed, 1);
  EXPECT_EQ(form.txtName.Text(), "b");
  EXPECT_EQ(form.Focus(), &form.txtName);
}

TEST_F(Controls, A_locked_or_disabled_control_takes_no_user_input) {
  form.txtName.SetLocked(true);
  EXPECT_FALSE(form.txtName.UserType("x"));
  EXPECT_EQ(form.txtName.Text(), "");
  int clicks = 0;
  form.cmdSave.Click.Always([&] { ++clicks; });
  form.cmdSave.SetEnabled(false);
  EXPECT_FALSE(form.cmdSave.UserClick());
  form.cmdSave.SetEnabled(true);
  form.cmdSave.SetVisible(false);
  EXPECT_FALSE(form.cmdSave.UserClick());
  EXPECT_EQ(clicks, 0);
  form.gmpStore.SetEnabled(false);
  EXPECT_FALSE(form.gmpStore.UserSelect(3));
  EXPECT_TRUE(form.gmpStore.NothingSelected());
  form.cmbKind.AddItem("a", 1);
  form.cmbKind.SetLocked(true);
  EXPECT_FALSE(form.cmbKind.UserChoose(0));
}

TEST_F(Controls, A_selector_and_a_date_box_report_only_real_changes_by_the_user) {
  int changes = 0;
  form.gmpStore.SelectionChanged.Always([&] { ++changes; });
  form.gdpDay.ValueChanged.Always([&] { ++changes; });
  form.gmpStore.Select(4);
  EXPECT_TRUE(form.gmpStore.UserSelect(4));
  EXPECT_EQ(changes, 0);
  form.gmpStore.UserSelect(5);
  form.gdpDay.UserSet(std::chrono::year{2025} / 3 / 21);
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(form.gdpDay.PersianText(), "1404/01/01");
  form.gdpDay.UserSet(std::nullopt);
  EXPECT_TRUE(form.gdpDay.IsEmpty());
  EXPECT_EQ(form.gdpDay.PersianText(), "");
}

TEST_F(Controls, Of_two_options_one_is_chosen) {
  form.optPrecise.Choose();
  EXPECT_TRUE(form.optNonPrecise.UserChoose());
  EXPECT_FALSE(form.optPrecise.Chosen());
  EXPECT_TRUE(form.optNonPrecise.Chosen());
}

TEST_F(Controls, A_list_forgets_its_choice_with_its_entries) {
  form.cmbKind.AddItem("كالا", 7);
  form.cmbKind.SetListIndex(0);
  ASSERT_NE(form.cmbKind.Chosen(), nullptr);
  EXPECT_EQ(form.cmbKind.Chosen()->itemData, 7);
  form.cmbKind.SetListIndex(5);
  EXPECT_EQ(form.cmbKind.ListIndex(), -1);
  form.cmbKind.Clear();
  EXPECT_EQ(form.cmbKind.Chosen(), nullptr);
}

TEST_F(Controls, Focus_moves_only_to_what_can_take_it_and_both_controls_learn_of_it) {
  std::vector<std::string> heard;
  form.txtName.GotFocus.Always([&] { heard.emplace_back("got"); });
  form.txtName.LostFocus.Always([&] { heard.emplace_back("lost"); });
  form.cmdSave.SetEnabled(false);
  EXPECT_TRUE(form.SetFocus(form.txtName));
  EXPECT_FALSE(form.SetFocus(form.cmdSave));
  EXPECT_EQ(form.Focus(), &form.txtName);
  EXPECT_TRUE(form.SetFocus(form.chkAll));
  EXPECT_EQ(heard, (std::vector<std::string>{"got", "lost"}));
}

TEST_F(Controls, A_key_reaches_the_form_before_the_control) {
  std::vector<std::string> heard;
  form.KeyDown.Always([&](KeyPress press) { heard.push_back("form " + std::to_string(press.key)); });
  form.txtName.KeyDown.Always([&](KeyPress press) { heard.push_back("box " + std::to_string(press.shift)); });
  form.txtName.UserKey({112, 2});
  EXPECT_EQ(heard, (std::vector<std::string>{"form 112", "box 2"}));
}

TEST_F(Controls, A_failing_event_is_shown_to_the_user_and_leaves_the_form_usable) {
  std::string shown;
  form.OnFailure = [&](const std::exception& failure) { shown = failure.what(); };
  form.cmdSave.Click.Always([&] {
    screen.SetCursor(Cursor::Hourglass);
    throw std::runtime_error("the disk is full");
  });
  EXPECT_TRUE(form.cmdSave.UserClick());
  EXPECT_EQ(shown, "the disk is full");
  EXPECT_EQ(screen.CurrentCursor(), Cursor::Normal);
  EXPECT_TRUE(form.txtName.UserType("still here"));
}

TEST_F(Controls, A_timer_ticks_only_while_it_is_enabled) {
  int ticks = 0;
  form.Timer1.Tick.Always([&] { ++ticks; });
  form.Timer1.Fire();
  form.Timer1.SetEnabled(false);
  form.Timer1.Fire();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(form.Timer1.IntervalMs(), 200);
}

TEST_F(Controls, A_form_unloads_once_and_is_hidden_then) {
  int unloaded = 0;
  form.Unloaded.Always([&] { ++unloaded; });
  form.Show(false);
  EXPECT_TRUE(form.Visible());
  EXPECT_EQ(screen.Shown().size(), 1U);
  form.Unload();
  form.Unload();
  EXPECT_FALSE(form.Visible());
  EXPECT_FALSE(form.Loaded());
  EXPECT_EQ(unloaded, 1);
}

}  // namespace
}  // namespace koru
