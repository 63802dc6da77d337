#include "desktop/forms/FormBinding.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QVBoxLayout>
#include <stdexcept>

#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

using test::Open;
using test::Press;
using test::Type;

class FormBindingTest : public testing::Test {
 protected:
  // The widgets belong to their window. NOLINTBEGIN(cppcoreguidelines-owning-memory)
  FormBindingTest() { layout = new QVBoxLayout(&window); }

  template <class Widget>
  Widget& Add() {
    auto* const widget = new Widget(&window);
    layout->addWidget(widget);
    return *widget;
  }
  // NOLINTEND(cppcoreguidelines-owning-memory)
  test::NoScreen screen;
  Form form{screen, "frm"};
  QWidget window;
  QVBoxLayout* layout = nullptr;
};

TEST_F(FormBindingTest, A_widget_carries_its_control_s_name_and_shows_its_state) {
  Label label(form, "lblIDVal");
  label.SetCaption("12");
  FormBinding binding(form);
  auto& widget = Add<QLabel>();
  binding.Bind(label, widget);
  EXPECT_EQ(window.findChild<QLabel*>("lblIDVal"), &widget);
  EXPECT_EQ(widget.text(), "12");
  label.SetCaption("13");
  label.SetEnabled(false);
  label.SetVisible(false);
  EXPECT_EQ(widget.text(), "13");
  EXPECT_FALSE(widget.isEnabled());
  EXPECT_TRUE(widget.isHidden());
}

TEST_F(FormBindingTest, What_is_typed_reaches_the_form_once_and_what_the_program_writes_never_comes_back) {
  TextBox text(form, "txtGNO");
  int changes = 0;
  text.Change.Always([&] { ++changes; });
  FormBinding binding(form);
  auto& widget = Add<QLineEdit>();
  binding.Bind(text, widget);
  Open(window);
  widget.setFocus();
  Type(QStringLiteral("ش۱"));
  EXPECT_EQ(text.Text(), "ش۱");
  EXPECT_EQ(changes, 2);
  text.SetText("7");
  EXPECT_EQ(widget.text(), "7");
  EXPECT_EQ(changes, 2);
  text.SetLocked(true);
  EXPECT_TRUE(widget.isReadOnly());
}

TEST_F(FormBindingTest, A_form_that_corrects_what_is_typed_is_shown) {
  TextBox text(form, "txtNotes");
  text.Change.Always([&] { text.SetText("12"); });
  FormBinding binding(form);
  auto& widget = Add<QPlainTextEdit>();
  binding.Bind(text, widget);
  Open(window);
  widget.setFocus();
  Type("12a");
  EXPECT_EQ(widget.toPlainText(), "12");
}

TEST_F(FormBindingTest, A_full_text_takes_no_more_wherever_that_is_typed_or_pasted) {
  TextBox text(form, "txtNotes");
  text.SetMaxLength(8);
  FormBinding binding(form);
  auto& widget = Add<QPlainTextEdit>();
  binding.Bind(text, widget);
  Open(window);
  widget.setFocus();
  Type("12345678");
  widget.moveCursor(QTextCursor::Start);
  Type("9");
  EXPECT_EQ(text.Text(), "12345678") << "what was there is not pushed out";
  EXPECT_EQ(widget.textCursor().position(), 0);
  QTextCursor middle = widget.textCursor();
  middle.setPosition(2);
  middle.setPosition(5, QTextCursor::KeepAnchor);
  widget.setTextCursor(middle);
  widget.insertPlainText("a\nbcd");
  EXPECT_EQ(text.Text(), "12a\nb678");
  EXPECT_EQ(widget.toPlainText(), "12a\nb678");
  widget.undo();
  EXPECT_EQ(text.Text(), "12345678") << "one step back";
  widget.selectAll();
  widget.insertPlainText(QStringLiteral("1234567\U0001F600"));
  EXPECT_EQ(text.Text(), "1234567") << "no character is cut in two";
}

TEST_F(FormBindingTest, A_field_that_selects_its_text_on_arrival_does_so_every_time) {
  TextBox text(form, "txtCode");
  TextBox other(form, "txtTitle");
  text.SetText("123");
  text.GotFocus.Always([&] { text.Select(0, 3); });
  FormBinding binding(form);
  auto& widget = Add<QLineEdit>();
  auto& otherWidget = Add<QLineEdit>();
  binding.Bind(text, widget);
  binding.Bind(other, otherWidget);
  Open(window);
  for (int time = 0; time < 2; ++time) {
    otherWidget.setFocus();
    widget.deselect();
    QTest::mouseClick(&widget, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(widget.selectedText(), "123") << time;
  }
}

TEST_F(FormBindingTest, Buttons_boxes_and_options_report_the_user_s_choice_to_the_form) {
  Button button(form, "cmdNew");
  CheckBox check(form, "chkAll");
  OptionGroup group;
  OptionButton first(form, "optFirst", group);
  OptionButton second(form, "optSecond", group);
  ComboBox combo(form, "cmbType");
  int clicks = 0;
  button.Click.Always([&] { ++clicks; });
  button.SetCaption("جديد");
  combo.AddItem("الف", 1);
  combo.AddItem("ب", 2);
  FormBinding binding(form);
  auto& buttonWidget = Add<QPushButton>();
  auto& checkWidget = Add<QCheckBox>();
  auto& firstWidget = Add<QRadioButton>();
  auto& secondWidget = Add<QRadioButton>();
  auto& comboWidget = Add<QComboBox>();
  binding.Bind(button, buttonWidget);
  binding.Bind(check, checkWidget);
  binding.Bind(first, firstWidget);
  binding.Bind(second, secondWidget);
  binding.Bind(combo, comboWidget);
  Open(window);
  QTest::mouseClick(&buttonWidget, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(form.Focus(), &button);
  QTest::keyClick(&checkWidget, Qt::Key_Space);
  EXPECT_TRUE(check.Checked());
  EXPECT_FALSE(firstWidget.isChecked());
  QTest::keyClick(&firstWidget, Qt::Key_Space);
  QTest::keyClick(&secondWidget, Qt::Key_Space);
  EXPECT_TRUE(second.Chosen());
  EXPECT_FALSE(firstWidget.isChecked());
  EXPECT_EQ(comboWidget.currentIndex(), -1);
  QTest::keyClick(&comboWidget, Qt::Key_Down);
  EXPECT_EQ(combo.ListIndex(), 0);
  combo.SetListIndex(-1);
  EXPECT_EQ(comboWidget.currentIndex(), -1);
  EXPECT_EQ(comboWidget.count(), 2);
  combo.SetLocked(true);
  QTest::keyClick(&comboWidget, Qt::Key_Down);
  EXPECT_EQ(comboWidget.currentIndex(), -1);
}

TEST_F(FormBindingTest, The_wheel_over_a_closed_list_changes_nothing_and_scrolls_what_contains_the_list) {
  ComboBox combo(form, "cmbType");
  combo.AddItem("الف", 1);
  combo.AddItem("ب", 2);
  combo.SetListIndex(0);
  FormBinding binding(form);
  auto& list = Add<QComboBox>();
  binding.Bind(combo, list);
  Open(window);
  for (const bool keyboardThere : {false, true}) {
    if (keyboardThere) list.setFocus();
    EXPECT_FALSE(test::TurnWheel(list, -120));
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(list.currentIndex(), 0);
  }
  EXPECT_EQ(list.focusPolicy(), Qt::StrongFocus) << "the wheel brings no keyboard either";
}

TEST_F(FormBindingTest, The_keyboard_is_in_the_same_place_on_both_sides) {
  TextBox first(form, "txtFirst");
  TextBox second(form, "txtSecond");
  std::string reported;
  first.LostFocus.Always([&] { reported += "first left;"; });
  second.GotFocus.Always([&] { reported += "second reached;"; });
  FormBinding binding(form);
  auto& firstWidget = Add<QLineEdit>();
  auto& secondWidget = Add<QLineEdit>();
  binding.Bind(first, firstWidget);
  binding.Bind(second, secondWidget);
  Open(window);
  firstWidget.setFocus();
  EXPECT_EQ(form.Focus(), &first);
  Press(Qt::Key_Tab);
  EXPECT_EQ(form.Focus(), &second);
  EXPECT_EQ(reported, "first left;second reached;");
  form.SetFocus(first);
  EXPECT_TRUE(firstWidget.hasFocus());
}

TEST_F(FormBindingTest, Keys_reach_the_form_first_and_the_control_next) {
  TextBox text(form, "txtCode");
  std::string reported;
  form.KeyDown.Always([&](KeyPress press) { reported += "form " + std::to_string(press.key) + ";"; });
  text.KeyDown.Always([&](KeyPress press) { reported += "box " + std::to_string(press.key) + ";"; });
  int rightClicks = 0;
  text.RightClick.Always([&] { ++rightClicks; });
  FormBinding binding(form);
  auto& widget = Add<QLineEdit>();
  widget.setContextMenuPolicy(Qt::NoContextMenu);
  binding.Bind(text, widget);
  Open(window);
  widget.setFocus();
  Press(Qt::Key_F3);
  EXPECT_EQ(reported, "form 114;box 114;");
  QContextMenuEvent event(QContextMenuEvent::Mouse, {2, 2}, widget.mapToGlobal(QPoint(2, 2)));
  QApplication::sendEvent(&widget, &event);
  EXPECT_EQ(rightClicks, 1);
}

TEST_F(FormBindingTest, Progress_is_on_the_screen_before_the_operation_continues) {
  struct Bar : QProgressBar {
    using QProgressBar::QProgressBar;
    void paintEvent(QPaintEvent* event) override {
      QProgressBar::paintEvent(event);
      painted = value();
    }
    int painted = -1;
  };
  ProgressBar progress(form, "pgbStatus");
  progress.SetVisible(false);
  FormBinding binding(form);
  auto& widget = Add<Bar>();
  binding.Bind(progress, widget);
  Open(window);
  progress.SetVisible(true);
  progress.SetMax(50);
  QTest::qSleep(60);
  progress.SetValue(20);
  EXPECT_EQ(widget.painted, 20);
  for (int value = 21; value <= 50; ++value) {
    QTest::qSleep(10);
    progress.SetValue(value);
  }
  EXPECT_GE(widget.painted, 40) << "what comes too fast for the eye is drawn a little later";
  QTRY_COMPARE(widget.value(), 50);
}

TEST_F(FormBindingTest, A_menu_entry_follows_its_control) {
  MenuItem item(form, "mnuRS");
  item.SetCaption("بازگشت");
  int clicks = 0;
  item.Click.Always([&] { ++clicks; });
  FormBinding binding(form);
  QAction action;
  binding.Bind(item, action);
  action.trigger();
  item.SetEnabled(false);
  action.trigger();
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(action.text(), QStringLiteral("بازگشت"));
}

TEST_F(FormBindingTest, A_timer_ticks_while_it_is_enabled_and_not_into_its_own_tick) {
  Timer timer(form, "Timer1");
  QEventLoop loop;
  int ticks = 0;
  int depth = 0;
  int deepest = 0;
  timer.Tick.Always([&] {
    deepest = std::max(deepest, ++depth);
    QTest::qWait(5);
    --depth;
    if (++ticks == 2) loop.quit();
  });
  FormBinding binding(form);
  binding.Bind(timer);
  auto* const clock = binding.findChild<QTimer*>("Timer1");
  clock->setInterval(1);
  loop.exec();
  EXPECT_EQ(deepest, 1);
  timer.SetEnabled(false);
  EXPECT_FALSE(clock->isActive());
}

TEST_F(FormBindingTest, A_failure_is_shown_and_the_form_stays_usable) {
  Button button(form, "cmdSave");
  button.Click.Always([] { throw std::runtime_error("disk full"); });
  std::string reported;
  form.OnFailure = [&](const std::exception& failure) { reported += failure.what(); };
  FormBinding binding(form);
  auto& widget = Add<QPushButton>();
  binding.Bind(button, widget);
  Open(window);
  QTest::mouseClick(&widget, Qt::LeftButton);
  QTest::mouseClick(&widget, Qt::LeftButton);
  EXPECT_EQ(reported, "disk fulldisk full");
}

TEST_F(FormBindingTest, After_letting_go_the_widgets_touch_no_control) {
  FormBinding binding(form);
  TextBox textBox(form, "txtCode");
  Button command(form, "cmdNew");
  int clicks = 0;
  command.Click.Always([&] { ++clicks; });
  auto& text = Add<QLineEdit>();
  auto& button = Add<QPushButton>();
  binding.Bind(textBox, text);
  binding.Bind(command, button);
  Open(window);
  text.setFocus();
  binding.Detach();
  Type("12");
  textBox.SetText("program");
  QTest::mouseClick(&button, Qt::LeftButton);
  EXPECT_EQ(text.text(), "12");
  EXPECT_EQ(textBox.Text(), "program");
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(form.Focus(), &textBox);
}

}  // namespace
}  // namespace koru
