#include "desktop/forms/comInvCountingWidget.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>

#include "counting/frmInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "tests/desktop/WindowTools.h"
#include "tests/desktop/forms/DesktopWorld.h"
#include "tests/support/FakeScreen.h"

namespace koru {
namespace {

class comInvCountingWidgetTest : public testing::Test {
 protected:
  comInvCountingWidgetTest() {
    world.database.Execute(
        "insert into tblInventory (ID,Name) values (1,'انبار مركزي');"
        "insert into tblUser (ID,FullName) values (1,'زهرا كريمي');"
        "insert into tblInventoryCounting (ID,Code,ManualCode,InventoryID,CreatorID,FarsiCreateDate,Notes) "
        "values "
        "(4,NULL,'م-4',1,1,'1404/01/15','نيمه تمام'),(5,1,'م-5',1,1,'1404/01/16','نهايي'),"
        "(9,NULL,NULL,1,1,'1404/02/01',NULL)");
  }

  void Connect() { widget.SetOLEConnectionString(ToQt(world.database.ConnectionText())); }
  [[nodiscard]] QString Cell(int row, int col) const {
    return widget.findChild<GridView*>("flexTempDocs")->model()->index(row, col).data().toString();
  }
  [[nodiscard]] int Listed() const {
    return widget.findChild<GridView*>("flexTempDocs")->model()->rowCount();
  }

  test::FakeScreen screen;
  test::DesktopWorld world{screen};
  comInvCountingWidget widget{world.Where()};
};

TEST_F(comInvCountingWidgetTest, The_properties_have_their_names_widths_and_defaults) {
  EXPECT_EQ(widget.property("OLEConnectionString").toString(), "0");
  EXPECT_EQ(widget.property("ForcedReceiptID").toInt(), -1);
  EXPECT_EQ(widget.property("UserID").typeId(), QMetaType::Int);
  QSignalSpy changed(&widget, &comInvCountingWidget::propertyChanged);
  widget.setProperty("OLEConnectionString", "Provider=SQLite;Data Source=x");
  ASSERT_EQ(changed.count(), 1);
  EXPECT_EQ(changed.first().first().toString(), "OleConnectionString");
}

TEST_F(comInvCountingWidgetTest,
       A_number_that_a_16_bit_property_cannot_hold_is_refused_and_the_old_one_kept) {
  static QStringList warnings;  // the toolkit's handler is a plain function
  const QtMessageHandler before =
      qInstallMessageHandler([](QtMsgType /*type*/, const QMessageLogContext& /*where*/,
                                const QString& text) { warnings.append(text); });
  for (const char* const name : {"EmployeeID", "PositionID", "ForcedReceiptID", "BackStyle", "BorderStyle"}) {
    EXPECT_TRUE(widget.setProperty(name, 12)) << name;
    QSignalSpy changed(&widget, &comInvCountingWidget::propertyChanged);
    for (const int wide : {40000, 65535, 65536, -32769}) {
      warnings.clear();
      widget.setProperty(name, wide);
      EXPECT_EQ(widget.property(name).toInt(), 12) << name << " = " << wide;
      EXPECT_EQ(warnings.size(), 1) << name << " = " << wide;
      EXPECT_TRUE(warnings.join(QChar(32)).contains(QLatin1String(name)));
    }
    EXPECT_EQ(changed.count(), 0) << name;
    for (const int fitting : {32767, -32768}) {
      widget.setProperty(name, fitting);
      EXPECT_EQ(widget.property(name).toInt(), fitting) << name;
    }
  }
  qInstallMessageHandler(before);
}

TEST_F(comInvCountingWidgetTest, The_font_is_the_one_of_the_identifier_box) {
  widget.SetFont(QFont("DejaVu Sans", 13));
  EXPECT_EQ(widget.findChild<QLineEdit*>("txtid")->font().pointSizeF(), 13);
}

TEST_F(comInvCountingWidgetTest, The_list_shows_the_temporary_countings_only) {
  Connect();
  test::Open(widget);
  ASSERT_EQ(Listed(), 2);
  EXPECT_EQ(Cell(0, 1), "4");
  EXPECT_EQ(Cell(0, 2), QStringLiteral("م-4"));
  EXPECT_EQ(Cell(0, 3), QStringLiteral("انبار مركزي"));
  EXPECT_EQ(Cell(0, 4), "1404/01/15");
  EXPECT_EQ(Cell(0, 7), QStringLiteral("نيمه تمام"));
  EXPECT_EQ(Cell(1, 1), "9");
}

TEST_F(comInvCountingWidgetTest, A_control_that_nobody_has_connected_asks_no_database_and_shows_no_message) {
  test::Open(widget);
  EXPECT_EQ(Listed(), 0);
  EXPECT_TRUE(world.messages.Shown().empty());
}

TEST_F(comInvCountingWidgetTest, A_database_that_cannot_be_read_is_reported_to_the_user) {
  widget.SetOLEConnectionString("Provider=SQLite;Data Source=/nowhere/at/all.db");
  test::Open(widget);
  EXPECT_EQ(world.messages.Shown().size(), 1U);
}

TEST_F(comInvCountingWidgetTest, A_double_click_opens_the_counting) {
  Connect();
  test::Open(widget);
  auto* const list = widget.findChild<GridView*>("flexTempDocs");
  const QPoint cell = list->visualRect(list->model()->index(1, 2)).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
  ASSERT_EQ(screen.Shown().size(), 1U);
  EXPECT_EQ(screen.Shown().front().form, "frmInvCounting");
  EXPECT_EQ(widget.findChild<QLineEdit*>("txtid")->text(), "9");
}

TEST_F(comInvCountingWidgetTest, The_list_keeps_its_place_when_it_is_read_again) {
  Connect();
  test::Open(widget);
  auto* const list = widget.findChild<GridView*>("flexTempDocs");
  const auto readAgain = [this] {
    widget.hide();
    test::Open(widget);
  };
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->model()->index(1, 2)).center());
  world.database.Execute("insert into tblInventoryCounting (ID,InventoryID,CreatorID) values (6,1,1)");
  readAgain();
  EXPECT_EQ(Listed(), 3);
  EXPECT_EQ(Cell(list->currentIndex().row(), 1), "9");
  world.database.Execute("update tblInventoryCounting set Code=2 where ID=9");
  readAgain();
  EXPECT_EQ(Cell(list->currentIndex().row(), 1), "6") << "the row that stands in its place";
}

TEST_F(comInvCountingWidgetTest, The_notes_take_the_room_that_the_other_columns_leave) {
  Connect();
  widget.resize(1400, 400);
  test::Open(widget);
  QApplication::processEvents();
  const auto* const list = widget.findChild<GridView*>("flexTempDocs");
  const int before = list->columnWidth(7);
  widget.resize(1600, 400);
  QApplication::processEvents();
  QApplication::processEvents();
  EXPECT_EQ(list->columnWidth(7), before + 200);
}

/// The control with the form's own window, as a host places it, and counting 4 being edited in it.
class WidgetWhileEnteringTest : public testing::Test {
 protected:
  WidgetWhileEnteringTest() {
    world.database.Execute(
        "insert into tblInventory (ID,Name) values (1,'انبار مركزي');"
        "insert into tblUser (ID,FullName) values (1,'زهرا كريمي');"
        "insert into tblPelinUserPermission (UserID,FormPermissionID) values (1,806),(1,80601),(1,80602);"
        "insert into tblInventoryCounting (ID,ManualCode,InventoryID,CreatorID,FarsiCreateDate) values "
        "(4,'م-4',1,1,'1404/01/15'),(9,'م-9',1,1,'1404/02/01')");
    screen.Register("frmInvCounting", [this](Form& form) -> std::unique_ptr<FormWindow> {
      auto made = std::make_unique<InvCountingWindow>(dynamic_cast<frmInvCounting&>(form), records);
      window = made.get();
      return made;
    });
    widget.SetOLEConnectionString(ToQt(world.database.ConnectionText()));
    widget.SetUserID(1);
    test::Open(widget);
    EXPECT_TRUE(widget.View(4));
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    test::Open(*window);
    window->findChild<QLineEdit*>("txtGNO")->setFocus();
    test::Type(QStringLiteral("تازه"));
  }

  void DoubleClickSecond() {
    widget.activateWindow();
    auto* const list = widget.findChild<GridView*>("flexTempDocs");
    const QPoint cell = list->visualRect(list->model()->index(1, 2)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, cell);
  }
  [[nodiscard]] QString Shown() const { return window->findChild<QLineEdit*>("txtGNO")->text(); }

  DesktopScreen screen;
  test::DesktopWorld world{screen};
  SelectorRecords records{world.database.Connector()};
  FormWindow* window = nullptr;
  comInvCountingWidget widget{world.Where()};
};

TEST_F(WidgetWhileEnteringTest, Another_counting_is_opened_only_when_the_user_gives_the_first_one_up) {
  world.messages.WillAnswer(test::FakeMessages::Answer::No);
  DoubleClickSecond();
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"آيا مطمئن هستيد؟"});
  EXPECT_EQ(Shown(), QStringLiteral("تازهم-4"));
  EXPECT_TRUE(window->isActiveWindow()) << "what is being entered is in front";
  EXPECT_TRUE(window->findChild<QPushButton*>("cmdCancel")->isEnabled());
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  DoubleClickSecond();
  EXPECT_EQ(Shown(), QStringLiteral("م-9"));
  world.messages.Forget();
  EXPECT_TRUE(widget.View(4));
  EXPECT_TRUE(world.messages.Shown().empty()) << "what is only viewed goes without a question";
}

TEST_F(WidgetWhileEnteringTest, Nor_does_a_new_one_throw_it_away) {
  world.messages.WillAnswer(test::FakeMessages::Answer::No);
  widget.ClearShow();
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"آيا مطمئن هستيد؟"});
  EXPECT_EQ(Shown(), QStringLiteral("تازهم-4"));
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  widget.ClearShow();
  EXPECT_EQ(Shown(), QString());
}

TEST_F(WidgetWhileEnteringTest, Another_database_closes_the_form_and_only_when_the_user_gives_the_entry_up) {
  const QPointer<FormWindow> form = window;
  const QString first = widget.OLEConnectionString();
  const QString other = first + QLatin1Char(';');
  world.messages.WillAnswer(test::FakeMessages::Answer::No);
  widget.SetOLEConnectionString(other);
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"آيا مطمئن هستيد؟"});
  EXPECT_EQ(widget.OLEConnectionString(), first);
  EXPECT_EQ(Shown(), QStringLiteral("تازهم-4"));
  world.messages.WillAnswer(test::FakeMessages::Answer::Yes);
  widget.SetOLEConnectionString(other);
  EXPECT_EQ(widget.OLEConnectionString(), other);
  EXPECT_TRUE(form.isNull() || !form->isVisible());
  EXPECT_FALSE(widget.View(99)) << "no counting of the other database";
  EXPECT_TRUE(widget.View(9));
  EXPECT_EQ(Shown(), QStringLiteral("م-9"));
}

}  // namespace
}  // namespace koru
