#include "desktop/forms/InvCountingWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <set>

#include "component/comInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/grid/GridView.h"
#include "lines/LineColumns.h"
#include "tests/desktop/WindowTools.h"
#include "tests/desktop/forms/DesktopWorld.h"
#include "tests/desktop/forms/SearchingScreen.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

/// A temporary counting (1) of two goods in the default store, on the screen in viewing mode.
class InvCountingWindowTest : public testing::Test {
 protected:
  InvCountingWindowTest() {
    world.database.Execute(
        "insert into tblInventory (ID,Name,IsDefault) values (1,'انبار مركزي',1),(2,'انبار شعبه',0);"
        "insert into tblInventoryUser (UserID,InventoryID) values (1,1),(1,2);"
        "insert into tblUser (ID,FullName) values (1,'زهرا كريمي'),(2,'مريم احمدي');"
        "insert into tblGoodScale (ID,Name) values (1,'عدد');"
        "insert into tblGood (Barcode,Code,Name) values ('6261','101','برنج'),('6262','102','روغن');"
        "insert into tblInventoryCounting "
        "(ID,Code,ManualCode,InventoryID,CreatorID,CreateDate,FarsiCreateDate,"
        "CounterEmployeeID1) values (1,NULL,'م-1',1,1,'2025-04-04','1404/01/15',2);"
        "insert into tblInventoryCountingDetail "
        "(CountingID,Barcode,RowNumber,ScaleID,FirstCounting,AcceptedCounting,"
        "SystemCounting,ContradictionCounting,BaseValue) values (1,'6261',1,1,10,10,12.5,-2.5,3000),"
        "(1,'6262',2,NULL,7,7,5,2,400)");
    screen.Register("frmInvCounting", [this](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<InvCountingWindow>(dynamic_cast<frmInvCounting&>(form), records);
    });
    control.SetOLEConnectionString(world.database.ConnectionText());
    control.SetUserID(1);
    world.database.Execute(
        "insert into tblPelinUserPermission (UserID,FormPermissionID) values "
        "(1,806),(1,80601),(1,80602),(1,80605)");
    EXPECT_TRUE(control.View(1));
    window = screen.WindowOf(Counting());
    window->resize(1280, 740);
    QApplication::processEvents();
  }

  [[nodiscard]] frmInvCounting& Counting() const { return *control.CountingForm(); }
  template <class Widget>
  [[nodiscard]] Widget& Find(const char* name) const {
    return *window->findChild<Widget*>(QLatin1String(name));
  }
  void Tick() { Counting().Timer1.Fire(); }
  void TypeRefusedFigure() {
    window->activateWindow();
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    Tick();
    Find<GridView>("flexDetail").setFocus();
    Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
    Type("-1");
  }

  test::SearchingScreen screen;
  test::DesktopWorld world{screen};
  SelectorRecords records{world.database.Connector()};
  comInvCounting control{world, world.Where()};
  FormWindow* window = nullptr;
};

TEST_F(InvCountingWindowTest, Every_control_of_the_form_has_its_widget) {
  for (const Control* control : Counting().Controls()) {
    if (dynamic_cast<const Timer*>(control) != nullptr) continue;
    EXPECT_NE(window->findChild<QObject*>(QString::fromStdString(control->Name())), nullptr)
        << control->Name();
  }
  EXPECT_EQ(window->windowTitle(), QStringLiteral("شمارش"));
  EXPECT_EQ(window->layoutDirection(), Qt::RightToLeft);
}

TEST_F(InvCountingWindowTest, A_counting_is_shown_with_names_dates_and_amounts_for_the_eye) {
  EXPECT_EQ(Find<QLabel>("lblIDVal").text(), "1");
  EXPECT_EQ(Find<QLineEdit>("txtGNO").text(), QStringLiteral("م-1"));
  EXPECT_EQ(Find<QWidget>("gmpInventory").findChild<QLineEdit*>()->text(), QStringLiteral("انبار مركزي"));
  EXPECT_EQ(Find<QWidget>("mptCounter1").findChild<QLineEdit*>()->text(), QStringLiteral("مريم احمدي"));
  EXPECT_EQ(Find<QWidget>("gdpReceiveDate").findChild<QLineEdit*>()->text(), "1404/01/15");
  const QAbstractItemModel& lines = *Find<GridView>("flexDetail").model();
  EXPECT_EQ(lines.index(0, LineColumn::ShortageAmount).data().toString(), "7,500");
  EXPECT_EQ(Find<QLineEdit>("txtTotalBelowValue").text(), "7500");
}

TEST_F(InvCountingWindowTest, Nothing_is_cut_off_on_the_smallest_screen) {
  for (const QSize size : {QSize(990, 700), QSize(1280, 740), QSize(1920, 1040)}) {
    window->resize(size);
    QApplication::processEvents();
    EXPECT_EQ(window->size(), size) << "the window asks for more";
    for (const QWidget* const widget :
         window->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      if (widget->isHidden() || widget->isWindow()) continue;
      EXPECT_TRUE(window->rect().contains(widget->geometry())) << widget->objectName().toStdString();
      EXPECT_GE(widget->width(), widget->minimumSizeHint().width()) << widget->objectName().toStdString();
    }
    for (const QPushButton* const button : window->findChildren<QPushButton*>()) {
      if (button == &Find<QPushButton>("cmdReadLines")) continue;  // not shown yet
      EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text()) + 10)
          << button->text().toStdString();
    }
  }
}

TEST_F(InvCountingWindowTest, A_command_says_its_keys_as_the_hints_do) {
  EXPECT_EQ(Find<QPushButton>("cmdNew").toolTip(), QStringLiteral("جديد (\u200ECtrl+N\u200E)"));
  EXPECT_EQ(Find<QPushButton>("cmdDeleteAll").toolTip(),
            QStringLiteral("حذف همه (\u200ECtrl+Shift+Del\u200E)"));
}

TEST_F(InvCountingWindowTest, Notes_begin_at_the_right_edge_and_take_what_is_stored) {
  auto& notes = Find<QPlainTextEdit>("txtNotes");
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  notes.setFocus();
  for (const QString& start : {QString(), QStringLiteral("شمارش")}) {
    notes.selectAll();
    Type(start);
    notes.moveCursor(QTextCursor::Start);
    EXPECT_GT(notes.cursorRect().x(), notes.viewport()->width() - 12);
  }
  notes.selectAll();
  notes.insertPlainText(QString(1001, QChar(u'ش')));
  EXPECT_EQ(notes.toPlainText().size(), 1000);
  EXPECT_EQ(Counting().txtNotes.Text(), notes.toPlainText().toStdString());
  auto& number = Find<QLineEdit>("txtGNO");
  number.setFocus();
  number.selectAll();
  number.insert(QString(300, QChar(u'7')));
  EXPECT_EQ(number.text().size(), 255);
}

TEST_F(InvCountingWindowTest, How_many_lines_the_goods_search_added_is_said_until_the_next_key) {
  const auto said = [this](const char* text) {
    for (const QLabel* const label : window->findChildren<QLabel*>()) {
      if (label->text().contains(QString::fromUtf8(text))) return true;
    }
    return false;
  };
  Counting().GoodsAdded.Raise(0);
  EXPECT_TRUE(said("كالاي تازه اي افزوده نشد."));
  EXPECT_FALSE(said("خانه بعد"));
  Counting().GoodsAdded.Raise(3);
  EXPECT_TRUE(said("3 سطر افزوده شد."));
  Find<GridView>("flexDetail").setFocus();
  Press(Qt::Key_Down);
  EXPECT_FALSE(said("افزوده"));
  EXPECT_TRUE(said("خانه بعد"));
}

TEST_F(InvCountingWindowTest, After_Cancel_the_window_says_that_the_lines_are_not_stored_and_F5_reads_them) {
  auto& notice = Find<QWidget>("unsavedLines");
  EXPECT_TRUE(notice.isHidden());
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  EXPECT_TRUE(Counting().LinesAreStored()) << "nothing has been typed yet";
  Counting().flexDetail.SetCurrent(1, LineColumn::FirstCounting);
  Find<GridView>("flexDetail").setFocus();
  Type("77");
  Press(Qt::Key_Return);
  EXPECT_TRUE(notice.isHidden()) << "what is being entered is not stored, as everybody knows";
  EXPECT_FALSE(Counting().LinesAreStored());
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  QTest::keyClick(window, Qt::Key_F8);
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::FirstCounting), "77");
  EXPECT_FALSE(notice.isHidden());
  EXPECT_TRUE(notice.findChild<QLabel*>()->text().contains(QStringLiteral("ذخيره نشده")));
  QTest::keyClick(window, Qt::Key_F5);
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::FirstCounting), "10");
  EXPECT_TRUE(notice.isHidden());
  EXPECT_TRUE(Counting().LinesAreStored());
}

TEST_F(InvCountingWindowTest, Cancel_of_an_edit_that_changed_no_line_shows_no_notice) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  QTest::keyClick(window, Qt::Key_F8);
  EXPECT_TRUE(Find<QWidget>("unsavedLines").isHidden());
}

TEST_F(InvCountingWindowTest, A_count_above_a_thousand_million_is_marked_and_explained) {
  Counting().flexDetail.SetTextMatrix(1, LineColumn::SecondCounting, "1000000001");
  const QModelIndex cell = Find<GridView>("flexDetail").model()->index(0, LineColumn::SecondCounting);
  EXPECT_TRUE(cell.data(Qt::ToolTipRole).toString().contains(QStringLiteral("1,000,000,000")));
  Counting().flexDetail.SetTextMatrix(1, LineColumn::SecondCounting, "1000000000");
  EXPECT_FALSE(cell.data(Qt::ToolTipRole).isValid());
}

TEST_F(InvCountingWindowTest,
       A_sort_says_that_saving_keeps_the_order_and_after_saving_it_is_the_order_of_entry) {
  Grid& lines = Counting().flexDetail;
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  lines.UserSort({LineColumn::GoodName, RowOrder::Descending});
  ASSERT_EQ(lines.TextMatrix(1, LineColumn::Barcode), "6262");
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(world.database.Scalar("select Barcode from tblInventoryCountingDetail where RowNumber=1"),
            "6262");
  EXPECT_TRUE(Counting().LinesAreStored());
  lines.UserSort({LineColumn::Barcode, RowOrder::Ascending});
  lines.UserSort({LineColumn::Barcode, RowOrder::Entry});
  EXPECT_EQ(lines.TextMatrix(1, LineColumn::Barcode), "6262");
}

TEST_F(InvCountingWindowTest, No_shortcut_is_given_twice) {
  std::set<QString> seen;
  for (const QShortcut* const shortcut : window->findChildren<QShortcut*>()) {
    EXPECT_TRUE(seen.insert(shortcut->key().toString()).second) << shortcut->key().toString().toStdString();
  }
  EXPECT_GE(seen.size(), 18U);
}

TEST_F(InvCountingWindowTest, Every_field_can_be_reached_with_Tab) {
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

TEST_F(InvCountingWindowTest, Tab_visits_the_fields_row_by_row_in_their_order_on_the_window) {
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
      "txtGNO gdpReceiveDate gmpInventory gdpFromDate gdpToDate txtNotes txtCreator mptCounter1 mptCounter2 "
      "mptCounter3 mptConfirmer cmdGoods ");
}

TEST_F(InvCountingWindowTest, A_line_is_counted_and_saved_from_the_keyboard_alone) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  auto& lines = Find<GridView>("flexDetail");
  lines.setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
  Type(QStringLiteral("۱۵"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::Surplus), "2.5");
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::Rate);
  Type("9");
  Tick();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);  // what is being typed is stored first
  EXPECT_EQ(
      world.database.Scalar("select AcceptedCounting from tblInventoryCountingDetail where RowNumber=1"),
      "15");
  EXPECT_EQ(world.database.Scalar("select BaseValue from tblInventoryCountingDetail where RowNumber=1"), "9");
}

TEST_F(InvCountingWindowTest, A_refused_number_blocks_saving_without_it) {
  TypeRefusedFigure();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Counting().cmdTmpSave.Enabled(), true);
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"تعداد كمتر از اندازة مجاز است."});
  EXPECT_NE(Find<GridView>("flexDetail").findChild<QLineEdit*>("cellEditor"), nullptr);
}

TEST_F(InvCountingWindowTest, A_refused_number_blocks_the_mouse_too_and_is_reported_once) {
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

TEST_F(InvCountingWindowTest, An_invalid_date_blocks_saving_by_key_and_by_mouse) {
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

TEST_F(InvCountingWindowTest, A_counting_that_is_only_viewed_takes_no_figures) {
  Find<GridView>("flexDetail").setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
  Type("5");
  EXPECT_EQ(Counting().flexDetail.TextMatrix(1, LineColumn::AcceptedCounting), "10");
  EXPECT_TRUE(Find<QLineEdit>("txtGNO").isReadOnly());
  EXPECT_FALSE(Find<QWidget>("gmpInventory").isEnabled());
}

TEST_F(InvCountingWindowTest, After_Edit_the_keyboard_is_in_the_lines_by_mouse_as_by_key) {
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

TEST_F(InvCountingWindowTest, An_edit_that_is_refused_leaves_the_keyboard_alone) {
  world.database.Execute("delete from tblPelinUserPermission where FormPermissionID=80602");
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  EXPECT_FALSE(Find<GridView>("flexDetail").hasFocus());
}

TEST_F(InvCountingWindowTest, After_Calculate_the_keyboard_is_on_the_line_where_it_was) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  Counting().flexDetail.SetCurrent(2, LineColumn::Barcode);
  QTest::mouseClick(&Find<QPushButton>("cmdCalc"), Qt::LeftButton);
  EXPECT_TRUE(Find<GridView>("flexDetail").hasFocus());
  EXPECT_EQ(Counting().flexDetail.Row(), 2);
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::Barcode) << "the next scan follows";
}

TEST_F(InvCountingWindowTest, After_Goods_the_keyboard_is_on_the_first_line_that_was_added) {
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

TEST_F(InvCountingWindowTest, Ctrl_Tab_moves_into_the_lines_and_out_again) {
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

TEST_F(InvCountingWindowTest, Goods_are_scanned_and_counted_without_any_other_key) {
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

TEST_F(InvCountingWindowTest, Closing_the_window_asks_before_what_was_entered_is_lost) {
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

TEST_F(InvCountingWindowTest, The_exit_button_takes_its_own_window_away) {
  QTest::mouseClick(&Find<QPushButton>("cmdExit"), Qt::LeftButton);
  EXPECT_EQ(control.CountingForm(), nullptr);
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_TRUE(control.View(1));
  EXPECT_TRUE(screen.WindowOf(Counting())->isVisible());
}

}  // namespace
}  // namespace koru
