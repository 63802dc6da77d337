#include "desktop/search/GoodsPickerDialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTextDocumentFragment>

#include "tests/desktop/WindowTools.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/TestDatabase.h"

namespace koru {
namespace {

using test::Press;
using test::Type;
using test::WhenDialogOpens;

class GoodsPickerDialogTest : public testing::Test {
 protected:
  GoodsPickerDialogTest() {
    base.Execute(
        "insert into tblInventory (ID,Name) values (3,'سردخانه');"
        "insert into tblGood (Barcode,Code,Name) values ('100','A','برنج طارم'),('200','B','برنج هاشمي'),"
        "('3''0','C','چاي'),('400',NULL,'روغن');"
        "insert into tblInventoryReceipt (ID,InventoryID) values (1,3);"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode) values (1,'400')");
    picker.SetConnectionString(base.ConnectionText());
  }

  void Pick(const std::function<void(QWidget&)>& scenario) {
    WhenDialogOpens([&](QWidget& dialog) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
      scenario(dialog);
    });
    picker.Show();
  }
  static int Rows(const QWidget& dialog, const char* list) {
    return dialog.findChild<QTableWidget*>(QLatin1String(list))->rowCount();
  }

  test::TestDatabase base;
  test::FailingConnector failing{base.Connector()};
  SuiteGoodsPicker picker{failing, PickInDialog};
};

TEST_F(GoodsPickerDialogTest, A_screen_reader_has_a_name_for_every_input) {
  Pick([](QWidget& dialog) {
    EXPECT_EQ(test::InputsWithoutName(dialog), QStringList());
    Press(Qt::Key_Escape);
  });
}

TEST_F(GoodsPickerDialogTest, Typing_narrows_the_list_and_Enter_picks_the_one) {
  Pick([](QWidget& dialog) {
    EXPECT_EQ(Rows(dialog, "results"), 4);
    Type(QStringLiteral("هاشمي"));
    Press(Qt::Key_Return);
  });
  EXPECT_EQ(picker.List(), "('','200')");
  EXPECT_EQ(picker.Name(), "برنج هاشمي");
  EXPECT_EQ(picker.Barcode(), "200");
  EXPECT_EQ(picker.Code(), "B");
}

TEST_F(GoodsPickerDialogTest, The_arrows_move_in_the_list_while_typing_and_the_button_picks) {
  Pick([](QWidget& dialog) {
    Type(QStringLiteral("برنج"));
    QCoreApplication::processEvents();
    Press(Qt::Key_Down);
    QTest::mouseClick(dialog.findChild<QPushButton*>("ok"), Qt::LeftButton);
  });
  EXPECT_EQ(picker.Barcode(), "200");
}

TEST_F(GoodsPickerDialogTest, Several_goods_go_into_the_basket_once_each_and_come_out_with_Delete) {
  picker.SetSeveralGoods(true);
  Pick([](QWidget& dialog) {
    for (const char16_t* const barcode : {u"100", u"200", u"3'0", u"100"}) {
      Type(QString::fromUtf16(barcode));
      Press(Qt::Key_Return);
    }
    EXPECT_EQ(Rows(dialog, "basket"), 3);
    auto* const basket = dialog.findChild<QTableWidget*>("basket");
    basket->setFocus();
    basket->setCurrentCell(1, 0);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Rows(dialog, "basket"), 2);
    Press(Qt::Key_Return, Qt::ControlModifier);
  });
  EXPECT_EQ(picker.List(), "('','100','3''0')");
  EXPECT_EQ(picker.Name(), "") << "there is no one good";
}

TEST_F(GoodsPickerDialogTest, A_scan_that_finds_nothing_is_said_and_the_next_one_replaces_it) {
  picker.SetSeveralGoods(true);
  Pick([](QWidget& dialog) {
    for (const char* const barcode : {"999", "100", "998", "200"}) {
      Type(barcode);
      Press(Qt::Key_Return);
      if (*barcode != '9') continue;
      EXPECT_EQ(dialog.findChild<QLabel*>("status")->text(),
                QStringLiteral("كالايي با اين مشخصات يافت نشد."));
      EXPECT_EQ(dialog.findChild<QLineEdit*>("filter")->selectedText(), barcode);
    }
    EXPECT_LT(dialog.minimumSizeHint().width(), 1000);
    Press(Qt::Key_Return, Qt::ControlModifier);
  });
  EXPECT_EQ(picker.List(), "('','100','200')");
}

TEST_F(GoodsPickerDialogTest, A_double_click_adds_a_good) {
  picker.SetSeveralGoods(true);
  Pick([](QWidget& dialog) {
    auto* const results = dialog.findChild<QTableWidget*>("results");
    const QPoint second = results->visualItemRect(results->item(1, 0)).center();
    QTest::mouseClick(results->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(results->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(Rows(dialog, "basket"), 1);
    QTest::mouseClick(dialog.findChild<QPushButton*>("ok"), Qt::LeftButton);
  });
  EXPECT_EQ(picker.List(), "('','200')");
}

TEST_F(GoodsPickerDialogTest, Escape_changes_nothing_of_what_was_picked_before) {
  picker.SetSeveralGoods(true);
  Pick([](QWidget&) {
    Type("100");
    Press(Qt::Key_Return);
    Press(Qt::Key_Return, Qt::ControlModifier);
  });
  Pick([](QWidget& dialog) {
    EXPECT_EQ(Rows(dialog, "basket"), 1) << "goods can be added to those of before";
    Type("200");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
  });
  EXPECT_EQ(picker.List(), "('','100')");
}

TEST_F(GoodsPickerDialogTest, An_emptied_basket_is_no_list) {
  picker.SetSeveralGoods(true);
  Pick([](QWidget& dialog) {
    Type("100");
    Press(Qt::Key_Return);
    QTest::mouseClick(dialog.findChild<QPushButton*>("clear"), Qt::LeftButton);
    Press(Qt::Key_Return, Qt::ControlModifier);
  });
  EXPECT_EQ(picker.List(), "");
}

TEST_F(GoodsPickerDialogTest, The_goods_of_the_store_are_offered_until_all_are_asked_for) {
  picker.SetInventory(3);
  Pick([](QWidget& dialog) {
    EXPECT_EQ(Rows(dialog, "results"), 1);
    auto* const storeOnly = dialog.findChild<QCheckBox*>("storeOnly");
    EXPECT_EQ(storeOnly->text(), QStringLiteral("فقط كالاهاي «سردخانه»"));
    QTest::mouseClick(storeOnly, Qt::LeftButton, {}, QPoint(storeOnly->width() - 8, storeOnly->height() / 2));
    EXPECT_EQ(Rows(dialog, "results"), 4);
    Press(Qt::Key_Escape);
  });
}

TEST_F(GoodsPickerDialogTest, A_database_error_is_shown_and_the_next_key_retries) {
  Pick([this](QWidget& dialog) {
    auto* const status = dialog.findChild<QLabel*>("status");
    failing.Plan().FailAt(1);
    Type("1");
    QCoreApplication::processEvents();
    EXPECT_TRUE(status->text().startsWith(QStringLiteral("كالاها خوانده نشدند")));
    EXPECT_FALSE(dialog.findChild<QPushButton*>("ok")->isEnabled());
    Type("0");
    QCoreApplication::processEvents();
    EXPECT_EQ(Rows(dialog, "results"), 1);
    Press(Qt::Key_Escape);
  });
}

TEST_F(GoodsPickerDialogTest, Names_of_stores_and_goods_are_shown_letter_by_letter) {
  base.Execute(
      "update tblInventory set Name = 'R&D <b>x</b>' where ID = 3;"
      "update tblGood set Name = '<h1>چاي</h1>' where Barcode = '400'");
  picker.SetInventory(3);
  Pick([](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QCheckBox*>("storeOnly")->text(),
              QStringLiteral("فقط كالاهاي «R&&D <b>x</b>»"));
    const QTableWidgetItem* const good = dialog.findChild<QTableWidget*>("results")->item(0, 0);
    EXPECT_EQ(good->text(), QStringLiteral("<h1>چاي</h1>"));
    EXPECT_EQ(QTextDocumentFragment::fromHtml(good->toolTip()).toPlainText(), good->text());
    EXPECT_EQ(dialog.findChild<QLabel*>("status")->textFormat(), Qt::PlainText);
    Press(Qt::Key_Escape);
  });
}

}  // namespace
}  // namespace koru
