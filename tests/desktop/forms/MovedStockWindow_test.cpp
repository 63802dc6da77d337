#include "desktop/forms/MovedStockWindow.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPushButton>

#include "lines/frmMovedStock.h"
#include "tests/desktop/forms/InvCountingWindowTest.h"

namespace koru {
namespace {

using test::Press;

/// The list of lines whose stock has moved, over a counting that is edited.
class MovedStockWindowTest : public InvCountingWindowTest {
 protected:
  void SetUp() override {
    screen.Register("frmMovedStock", [](Form& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<MovedStockWindow>(dynamic_cast<frmMovedStock&>(form));
    });
    world.database.Execute(
        "insert into tblInventoryReceipt (ID,Code,InventoryID,ReceiveDate,FarsiReceiveDate) values "
        "(1,31,1,'2025-04-01','1404/01/12');"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,Value) values (1,'6261',20,3000)");
    window->activateWindow();
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    Tick();
  }
  /// Opens the list with its key; `use` works in it.
  void Check(const std::function<void(QWidget&)>& use) {
    bool isUsed = false;
    test::WhenDialogOpens([&](QWidget& dialog) {
      isUsed = true;
      dialog.activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
      QApplication::processEvents();
      use(dialog);
    });
    QTest::keyClick(window, Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_TRUE(isUsed);
  }
  [[nodiscard]] std::string Stock(int row) const {
    return std::string(Counting().flexDetail.TextMatrix(row, LineColumn::SystemCounting));
  }
};

TEST_F(MovedStockWindowTest, Space_checks_a_line_and_the_command_takes_it) {
  Check([](QWidget& dialog) {
    auto& lines = *dialog.findChild<GridView*>("flexMoved");
    auto& take = *dialog.findChild<QPushButton*>("cmdTakeMarked");
    EXPECT_TRUE(lines.hasFocus());
    EXPECT_FALSE(take.isEnabled());
    Press(Qt::Key_Space);
    EXPECT_TRUE(take.isEnabled());
    take.click();
  });
  EXPECT_EQ(Stock(1), "20");
  EXPECT_EQ(Stock(2), "5");
}

TEST_F(MovedStockWindowTest, A_click_on_the_check_box_checks_it) {
  Check([](QWidget& dialog) {
    auto& lines = *dialog.findChild<GridView*>("flexMoved");
    const QRect box = lines.visualRect(lines.model()->index(1, MovedColumn::Mark));
    QTest::mouseClick(lines.viewport(), Qt::LeftButton, {}, box.center());
    dialog.findChild<QPushButton*>("cmdTakeMarked")->click();
  });
  EXPECT_EQ(Stock(1), "12.5");
  EXPECT_EQ(Stock(2), "0");
}

TEST_F(MovedStockWindowTest, The_documents_follow_the_current_line) {
  Check([](QWidget& dialog) {
    auto& documents = *dialog.findChild<GridView*>("flexDocuments");
    EXPECT_EQ(documents.model()->rowCount(), 1);
    Press(Qt::Key_Down);
    EXPECT_EQ(documents.model()->rowCount(), 0);
    EXPECT_TRUE(dialog.findChild<QLabel*>("lblDocuments")->text().startsWith("اين كالا سندي"));
    dialog.close();
  });
}

TEST_F(MovedStockWindowTest, Escape_closes_it_and_nothing_changes) {
  Check([](QWidget& dialog) {
    Press(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_EQ(Stock(1), "12.5");
}

TEST_F(MovedStockWindowTest, Its_commands_are_whole_in_a_small_window_and_have_names) {
  Check([](QWidget& dialog) {
    EXPECT_EQ(test::ButtonsCutOff(dialog, test::kSmallWindow), QStringList());
    EXPECT_EQ(test::InputsWithoutName(dialog), QStringList());
    dialog.close();
  });
}

TEST_F(MovedStockWindowTest, A_figure_that_the_form_refuses_is_not_left_for_it) {
  TypeRefusedFigure();
  Find<QAction>("mnuMovedStock").trigger();
  EXPECT_TRUE(Find<GridView>("flexDetail").IsTypedInto());
}

TEST_F(MovedStockWindowTest, The_window_says_how_old_the_book_stock_is) {
  EXPECT_EQ(Find<QLabel>("lblFiguresAge").text(), "محاسبه موجودي: زمان نامعلوم");
  QTest::keyClick(window, Qt::Key_F9);
  Tick();
  EXPECT_EQ(Find<QLabel>("lblFiguresAge").text(), "محاسبه موجودي: هم‌اكنون");
  world.clock.Pass(std::chrono::minutes(7));
  Tick();
  EXPECT_EQ(Find<QLabel>("lblFiguresAge").text(), "محاسبه موجودي: 7 دقيقه پيش");
}

}  // namespace
}  // namespace koru
