#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>
#include <set>

#include "tests/desktop/forms/InvCountingWindowTest.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

/// The window worked by keys, and where the keyboard is after a command.
using InvCountingWindowKeys = InvCountingWindowTest;

TEST_F(InvCountingWindowKeys, Every_field_can_be_reached_with_Tab) {
  std::set<QWidget*> reached;
  QWidget* at = window->nextInFocusChain();
  for (; at != window; at = at->nextInFocusChain()) {
    if (at->focusPolicy() & Qt::TabFocus) reached.insert(at);
  }
  for (const char* name :
       {"txtGNO", "gmpInventory", "gdpReceiveDate", "gdpFromDate", "gdpToDate", "mptCounter1", "mptConfirmer",
        "txtNotes", "flexDetail", "cmdNew", "cmdExit", "menuButton"}) {
    auto& widget = Find<QWidget>(name);
    EXPECT_TRUE(reached.contains(widget.focusProxy() == nullptr ? &widget : widget.focusProxy())) << name;
  }
}

TEST_F(InvCountingWindowKeys, Tab_visits_the_fields_row_by_row_in_their_order_on_the_window) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Find<QLineEdit>("txtGNO").setFocus();
  std::string order;
  for (int i = 0; i < 12; ++i) {
    order += Counting().Focus()->Name() + " ";
    Press(Qt::Key_Tab);
  }
  EXPECT_EQ(
      order,
      "txtGNO gmpInventory gdpReceiveDate gdpFromDate gdpToDate txtCreator txtNotes mptCounter1 mptCounter2 "
      "mptCounter3 mptConfirmer cmdGoods ");
}

TEST_F(InvCountingWindowKeys, A_line_is_counted_and_saved_from_the_keyboard_alone) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  auto& lines = Find<GridView>("flexDetail");
  lines.setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
  Type(QStringLiteral("۱۵"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::Surplus), "2.5");
  EXPECT_EQ(Counting().flexDetail.Row(), 2) << "the rate of the line is filled in";
  Counting().flexDetail.SetCurrent(1, LineColumn::Rate);
  Type("9");
  Tick();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);  // what is being typed is stored first
  EXPECT_EQ(
      world.database.Scalar("select AcceptedCounting from tblInventoryCountingDetail where RowNumber=1"),
      "15");
  EXPECT_EQ(world.database.Scalar("select BaseValue from tblInventoryCountingDetail where RowNumber=1"), "9");
}

TEST_F(InvCountingWindowKeys, A_refused_number_blocks_saving_without_it) {
  TypeRefusedFigure();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Counting().cmdTmpSave.Enabled(), true);
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"تعداد كمتر از اندازة مجاز است."});
  EXPECT_NE(Find<GridView>("flexDetail").findChild<QLineEdit*>("cellEditor"), nullptr);
}

TEST_F(InvCountingWindowKeys, A_refused_number_blocks_the_mouse_too_and_is_reported_once) {
  TypeRefusedFigure();
  ASSERT_TRUE(Find<QPushButton>("cmdTmpSave").isEnabled());
  QTest::mouseClick(&Find<QPushButton>("cmdTmpSave"), Qt::LeftButton);
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"تعداد كمتر از اندازة مجاز است."});
  EXPECT_TRUE(Counting().gmpInventory.Enabled()) << "it is still being entered";
  EXPECT_TRUE(Find<GridView>("flexDetail").IsTypedInto());
  QTest::keyClick(window, Qt::Key_F8);
  EXPECT_EQ(world.messages.Texts().back(), "آيا مطمئن هستيد؟")
      << "giving everything up needs no right figure";
}

TEST_F(InvCountingWindowKeys, An_invalid_date_blocks_saving_by_key_and_by_mouse) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  auto* const date = Find<QWidget>("gdpReceiveDate").findChild<QLineEdit*>();
  const auto stored = [this] {
    return world.database.Scalar("select FarsiCreateDate from tblInventoryCounting");
  };
  date->setFocus();
  date->selectAll();
  Type("14041345");
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(date->hasFocus());
  for (const char* const command : {"cmdTmpSave", "cmdIsFinalized", "cmdCalc", "cmdGoods"}) {
    auto& button = Find<QPushButton>(command);
    ASSERT_TRUE(button.isEnabled()) << command;
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(date->hasFocus()) << command;
  }
  EXPECT_TRUE(world.messages.Texts().empty()) << world.messages.Texts().front();
  EXPECT_EQ(Counting().gdpReceiveDate.PersianText(), "1404/01/15");
  QApplication::processEvents();
  Type("14040120");
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(stored(), "1404/01/20");
}

TEST_F(InvCountingWindowKeys, A_counting_that_is_only_viewed_takes_no_figures) {
  Find<GridView>("flexDetail").setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
  Type("5");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::AcceptedCounting), "10");
  EXPECT_TRUE(Find<QLineEdit>("txtGNO").isReadOnly());
  EXPECT_FALSE(Find<QWidget>("gmpInventory").isEnabled());
}

TEST_F(InvCountingWindowKeys, A_figure_typed_into_a_viewed_counting_names_the_command_that_opens_it) {
  window->activateWindow();
  auto& lines = Find<GridView>("flexDetail");
  int refused = 0;
  QObject::connect(&lines, &GridView::refused, &lines, [&refused] { ++refused; });
  lines.setFocus();
  for (const int col : {LineColumn::FirstCounting, LineColumn::AcceptedCounting, LineColumn::Rate}) {
    Counting().flexDetail.SetCurrent(1, col);
    QToolTip::hideText();
    Type("5");
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("«اصلاح»"))) << col;
  }
  EXPECT_EQ(refused, 3);
  Counting().txtCode.SetText("7");
  Type("5");
  EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("«بازگشت به موقت»")));
  Counting().flexDetail.SetCurrent(1, LineColumn::SystemCounting);
  Type("5");
  EXPECT_EQ(Counting().flexDetail.Row(), 2) << "a column that is never typed into is searched";
}

TEST_F(InvCountingWindowKeys, Enter_presses_the_focused_command_once) {
  window->activateWindow();
  auto& edit = Find<QPushButton>("cmdEdit");
  edit.setFocus();
  ASSERT_TRUE(edit.hasFocus());
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
  QApplication::sendEvent(&edit, &held);
  EXPECT_FALSE(Counting().IsBeingEntered()) << "a key that is held down presses nothing";
  Press(Qt::Key_Return);
  EXPECT_TRUE(Counting().IsBeingEntered());
  Find<QLineEdit>("txtGNO").setFocus();
  Press(Qt::Key_Enter);
  EXPECT_TRUE(Counting().IsBeingEntered());
}

TEST_F(InvCountingWindowKeys, After_Edit_the_keyboard_is_in_the_lines_by_mouse_as_by_key) {
  window->activateWindow();
  for (const bool byMouse : {true, false}) {
    Find<QLineEdit>("txtGNO").setFocus();
    if (byMouse) {
      QTest::mouseClick(&Find<QPushButton>("cmdEdit"), Qt::LeftButton);
    } else {
      QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    }
    EXPECT_TRUE(Find<GridView>("flexDetail").hasFocus());
    EXPECT_EQ(Counting().Focus(), &Counting().flexDetail);
    EXPECT_EQ(Counting().flexDetail.Row(), 1);
    EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::FirstCounting);
    world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
    QTest::keyClick(window, Qt::Key_F8);
    Tick();
  }
}

TEST_F(InvCountingWindowKeys, An_edit_that_is_refused_leaves_the_keyboard_alone) {
  world.database.Execute("delete from tblPelinUserPermission where FormPermissionID=80602");
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  EXPECT_FALSE(Find<GridView>("flexDetail").hasFocus());
}

TEST_F(InvCountingWindowKeys, After_Calculate_the_keyboard_is_on_the_line_where_it_was) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  Counting().flexDetail.SetCurrent(2, LineColumn::Barcode);
  QTest::mouseClick(&Find<QPushButton>("cmdCalc"), Qt::LeftButton);
  EXPECT_TRUE(Find<GridView>("flexDetail").hasFocus());
  EXPECT_EQ(Counting().flexDetail.Row(), 2);
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::Barcode) << "the next scan follows";
}

TEST_F(InvCountingWindowKeys, After_Goods_the_keyboard_is_on_the_first_line_that_was_added) {
  world.database.Execute(
      "insert into tblGood (Barcode,Code,Name) values ('6263','103','چاي'),('6264','104','قند')");
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  QTest::mouseClick(&Find<QPushButton>("cmdGoods"), Qt::LeftButton);
  ASSERT_EQ(Counting().flexDetail.Rows(), 5);
  EXPECT_TRUE(Find<GridView>("flexDetail").hasFocus());
  EXPECT_EQ(Counting().flexDetail.Row(), 3);
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::FirstCounting);
}

TEST_F(InvCountingWindowKeys, Ctrl_Tab_moves_into_the_lines_and_out_again) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  for (const char* name : {"txtGNO", "txtNotes", "cmdTmpSave"}) {
    Find<QWidget>(name).setFocus();
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(Find<GridView>("flexDetail").hasFocus()) << name;
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_FALSE(Find<GridView>("flexDetail").hasFocus()) << name;
  }
  Find<GridView>("flexDetail").setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::FirstCounting);
  Type("4");
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_FALSE(Find<GridView>("flexDetail").hasFocus()) << "also while typing";
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::FirstCounting), "4");
}

TEST_F(InvCountingWindowKeys, Goods_are_scanned_and_counted_without_any_other_key) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Counting().flexDetail.SetCurrent(1, LineColumn::Barcode);
  for (const char* const scanned : {"6262", "31", "6269", "6261", "32"}) {
    Type(scanned);
    Press(Qt::Key_Return);
  }
  EXPECT_EQ(Counting().flexDetail.TextMatrix(2, LineColumn::FirstCounting), "31");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::FirstCounting), "32");
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::Barcode);
}

TEST_F(InvCountingWindowKeys, Closing_the_window_asks_before_what_was_entered_is_lost) {
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  world.messages.WillAnswer(test::FakeMessages::Answer::No);
  window->close();
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"آيا مطمئن هستيد؟"});
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  window->close();
  EXPECT_TRUE(window->isVisible());
  window->close();
  EXPECT_EQ(control.CountingForm(), nullptr);
}

TEST_F(InvCountingWindowKeys, The_exit_button_takes_its_own_window_away) {
  QTest::mouseClick(&Find<QPushButton>("cmdExit"), Qt::LeftButton);
  EXPECT_EQ(control.CountingForm(), nullptr);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_TRUE(control.View(1));
  EXPECT_TRUE(screen.WindowOf(Counting())->isVisible());
}

TEST_F(InvCountingWindowKeys, An_unknown_barcode_offers_to_add_its_good_and_then_takes_its_count) {
  world.database.Execute("insert into tblGood (Barcode,Code,Name) values ('6263','103','چاي')");
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Find<GridView>("flexDetail").setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::Barcode);
  auto& offer = Find<QWidget>("scanOffer");
  EXPECT_TRUE(offer.isHidden());
  Type("6263");
  Press(Qt::Key_Return);
  ASSERT_FALSE(offer.isHidden());
  EXPECT_TRUE(offer.findChild<QLabel*>()->text().contains(QStringLiteral("6263")));
  QTest::keyClick(window, Qt::Key_G, Qt::ControlModifier);
  EXPECT_TRUE(offer.isHidden());
  ASSERT_EQ(Counting().flexDetail.Rows(), 4);
  EXPECT_EQ(Counting().flexDetail.Row(), 3);
  EXPECT_TRUE(Find<GridView>("flexDetail").hasFocus());
  Type("12");
  Press(Qt::Key_Return);
  EXPECT_EQ(Counting().flexDetail.TextMatrix(3, LineColumn::FirstCounting), "12");
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::Barcode) << "ready for the next scan";
}

}  // namespace
}  // namespace koru
