#include <gtest/gtest.h>

#include <QAction>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolTip>
#include <set>

#include "desktop/fields/StatusLine.h"
#include "tests/desktop/forms/InvCountingWindowTest.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

TEST_F(InvCountingWindowTest, Every_command_is_visible_on_a_small_screen_also_while_a_counting_is_entered) {
  EXPECT_EQ(test::ButtonsCutOff(*window, test::kSmallWindow), QStringList());
  Counting().cmdEdit.UserClick();
  EXPECT_EQ(test::ButtonsCutOff(*window, test::kSmallWindow), QStringList());
}

TEST_F(InvCountingWindowTest, A_screen_reader_has_a_name_for_every_input_and_reads_the_computer_number) {
  EXPECT_EQ(test::InputsWithoutName(*window), QStringList());
  EXPECT_EQ(Find<QLabel>("lblIDVal").accessibleName(), QStringLiteral("شماره رايانه اي: 1"));
  Counting().cmdNew.UserClick();
  EXPECT_EQ(Find<QLabel>("lblIDVal").accessibleName(), QStringLiteral("شماره رايانه اي: "));
}

TEST_F(InvCountingWindowTest, Every_control_of_the_form_has_its_widget) {
  for (const Control* control : Counting().Controls()) {
    if (dynamic_cast<const Timer*>(control) != nullptr) continue;
    EXPECT_NE(window->findChild<QObject*>(QString::fromStdString(control->Name())), nullptr)
        << control->Name();
  }
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
      if (!button->isVisible()) continue;
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

TEST_F(InvCountingWindowTest, What_a_command_did_is_said_until_the_next_key) {
  const auto& status = Find<StatusLine>("statusLine");
  EXPECT_TRUE(status.Sentence().contains(QStringLiteral("خانه بعد")));
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Tick();
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(status.Sentence(), QStringLiteral("ثبت موقت شد: شماره رايانه اي 1، 2 سطر."));
  Find<GridView>("flexDetail").setFocus();
  Press(Qt::Key_Down);
  EXPECT_TRUE(status.Sentence().contains(QStringLiteral("خانه بعد")));
}

TEST_F(InvCountingWindowTest, What_a_command_did_is_said_no_longer_than_until_the_next_command_or_document) {
  const auto& status = Find<StatusLine>("statusLine");
  const auto save = [&] {
    Find<QPushButton>("cmdEdit").click();
    Tick();
    Find<QPushButton>("cmdTmpSave").click();
    ASSERT_TRUE(status.Sentence().startsWith(QStringLiteral("ثبت موقت شد")));
  };
  save();
  Find<QPushButton>("cmdEdit").click();
  EXPECT_TRUE(status.Sentence().contains(QStringLiteral("خانه بعد")));
  Find<QPushButton>("cmdCancel").click();
  save();
  world.database.Execute(
      "insert into tblInventoryCounting (ID,InventoryID,CreatorID,CreateDate,FarsiCreateDate) values "
      "(2,1,1,'2025-04-04','1404/01/15')");
  ASSERT_TRUE(control.View(2));
  EXPECT_TRUE(status.Sentence().contains(QStringLiteral("خانه بعد")));
}

TEST_F(InvCountingWindowTest, The_menu_offers_the_return_when_its_button_does) {
  const auto& entry = Find<QAction>("mnuRS");
  EXPECT_FALSE(entry.isEnabled());
  world.database.Execute("update tblInventoryCounting set Code='5' where ID=1");
  ASSERT_TRUE(control.View(1));
  EXPECT_TRUE(Find<QPushButton>("cmdFunc").isEnabled());
  EXPECT_TRUE(entry.isEnabled());
}

TEST_F(InvCountingWindowTest, A_grey_save_says_why_and_what_is_missing_is_marked) {
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Counting().gmpInventory.ClearSelection();
  Tick();
  auto& save = Find<QPushButton>("cmdTmpSave");
  auto* const store = Find<QWidget>("gmpInventory").findChild<QLineEdit*>();
  ASSERT_FALSE(save.isEnabled());
  for (QWidget* const shown : {static_cast<QWidget*>(&save), static_cast<QWidget*>(store)}) {
    QHelpEvent hover(QEvent::ToolTip, shown->rect().center(), shown->mapToGlobal(shown->rect().center()));
    QApplication::sendEvent(shown, &hover);
    EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("انبار"))) << shown->objectName().toStdString();
    QToolTip::hideText();
  }
  EXPECT_TRUE(store->property("missing").toBool());
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Find<StatusLine>("statusLine").Sentence(), QStringLiteral("براي ثبت، اين ها كم است: انبار"));
  Counting().gmpInventory.Select(1);
  Tick();
  EXPECT_FALSE(store->property("missing").toBool());
  EXPECT_TRUE(save.isEnabled());
}

TEST_F(InvCountingWindowTest, The_title_says_which_counting_it_is_and_in_which_state) {
  EXPECT_EQ(window->windowTitle(), QStringLiteral("شمارش موقت - شماره رايانه اي 1"));
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(window->windowTitle(), QStringLiteral("اصلاح شمارش موقت - شماره رايانه اي 1"));
  Tick();
  world.database.Execute("insert into tblPelinUserPermission (UserID,FormPermissionID) values (1,80606)");
  QTest::keyClick(window, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(window->windowTitle(), QStringLiteral("شمارش نهايي شماره 1 - شماره رايانه اي 1"));
  QTest::keyClick(window, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(window->windowTitle(), QStringLiteral("شمارش جديد"));
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  QTest::keyClick(window, Qt::Key_F8);
  EXPECT_EQ(window->windowTitle(), QStringLiteral("شمارش - فرم خالي"));
}

TEST_F(InvCountingWindowTest, The_registering_command_is_set_apart_from_saving) {
  const QRect save = Find<QPushButton>("cmdTmpSave").geometry();
  const QRect registering = Find<QPushButton>("cmdIsFinalized").geometry();
  const QRect cancel = Find<QPushButton>("cmdCancel").geometry();
  EXPECT_GT(save.left(), cancel.left());
  EXPECT_GT(cancel.left(), registering.left()) << "from right to left";
  EXPECT_GT(cancel.left() - registering.right(), save.left() - cancel.right()) << "with a gap";
  EXPECT_FALSE(Find<QPushButton>("cmdIsFinalized").property("main").toBool());
}

TEST_F(InvCountingWindowTest, Enter_moves_down_when_the_menu_says_so) {
  auto& down = Find<QAction>("enterGoesDown");
  EXPECT_FALSE(down.isChecked());
  down.trigger();
  EXPECT_TRUE(Counting().EnterGoesDown());
  window->activateWindow();
  QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
  Find<GridView>("flexDetail").setFocus();
  Counting().flexDetail.SetCurrent(1, LineColumn::AcceptedCounting);
  Type("8");
  Press(Qt::Key_Return);
  EXPECT_EQ(Counting().flexDetail.Row(), 2);
  EXPECT_EQ(Counting().flexDetail.Col(), LineColumn::AcceptedCounting);
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

}  // namespace
}  // namespace koru
