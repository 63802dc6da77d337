#include "desktop/documents/StockDocumentDialog.h"

#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QToolTip>

#include "tests/desktop/WindowTools.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/TestDatabase.h"

namespace koru {
namespace {

using test::FakeMessages;
using test::Press;
using test::WhenDialogOpens;

class StockDocumentDialogTest : public testing::Test {
 protected:
  StockDocumentDialogTest() {
    messages.RegisterIn(components);
    RegisterDocumentComponents(components, failing, ShowInDialog);
    base.Execute(
        "insert into tblInventory (ID,Name) values (3,'سردخانه');"
        "insert into tblUser (ID,FullName) values (5,'مريم احمدي');"
        "insert into tblGoodScale (ID,Name) values (1,'عدد');"
        "insert into tblGood (Barcode,Code,Name) values ('100','A','برنج'),('200',NULL,'چاي');"
        "insert into tblInventoryReceipt (ID,Code,InventoryID,CreatorID,FarsiReceiveDate,Notes) values "
        "(7,NULL,3,5,'1404/12/28','از شمارش'),(8,41,3,5,'1404/12/27',NULL);"
        "insert into tblInventoryReceiptDetail (ReceiptID,Barcode,Qty,ScaleID,Value) values "
        "(7,' 100 ',5,1,1200000),(7,'200',2.5,NULL,NULL),(7,'999',1,1,3);"
        "insert into tblInventoryDispatch (ID,InventoryID) values (9,99)");
  }

  void View(std::string_view className, std::int32_t id, const std::function<void(QWidget&)>& scenario) {
    const auto component = components.Create(className);
    auto& document = dynamic_cast<DocumentComponent&>(*component);
    document.SetConnectionString(base.ConnectionText());
    WhenDialogOpens([&](QWidget& dialog) {
      ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
      scenario(dialog);
      if (dialog.isVisible()) Press(Qt::Key_Escape);
    });
    document.View(id);
  }
  static QString Shown(const QWidget& dialog, const char* name) {
    return dialog.findChild<QLabel*>(QLatin1String(name))->text();
  }
  static QStringList Line(const QWidget& dialog, int row) {
    const auto* const model = dialog.findChild<QTableView*>("lines")->model();
    QStringList texts;
    for (int col = 0; col < model->columnCount(); ++col) {
      texts.append(model->index(row, col).data().toString().remove(QChar(0x200E)));
    }
    return texts;
  }
  static void PressRegister(const QWidget& dialog) {
    QTest::mouseClick(dialog.findChild<QPushButton*>("register"), Qt::LeftButton);
  }

  test::TestDatabase base{test::TestDatabase::Kind::File};  // lines have no order on a server
  test::FailingConnector failing{base.Connector()};
  FakeMessages messages;
  ComponentRegistry components;
};

constexpr auto kReceipt = DocumentComponent::kReceiptClassName;
constexpr auto kDispatch = DocumentComponent::kDispatchClassName;

TEST_F(StockDocumentDialogTest, A_receipt_is_shown_with_its_header_lines_and_totals) {
  int shown = 0;
  View(kReceipt, 7, [&](QWidget& dialog) {
    ++shown;
    EXPECT_EQ(Shown(dialog, "id"), "7");
    EXPECT_EQ(Shown(dialog, "code"), QStringLiteral("موقت"));
    EXPECT_EQ(Shown(dialog, "store"), QStringLiteral("سردخانه"));
    EXPECT_EQ(Shown(dialog, "date"), "1404/12/28");
    EXPECT_EQ(Shown(dialog, "creator"), QStringLiteral("مريم احمدي"));
    EXPECT_EQ(Shown(dialog, "notes"), QStringLiteral("از شمارش"));
    EXPECT_EQ(Line(dialog, 0), QStringList({"1", "A", QStringLiteral("برنج"), QStringLiteral("عدد"), "5",
                                            "1,200,000", "6,000,000"}));
    EXPECT_EQ(Line(dialog, 1), QStringList({"2", "", QStringLiteral("چاي"), "", "2.5", "0", "0"}));
    EXPECT_EQ(Line(dialog, 2), QStringList({"3", "", "999", QStringLiteral("عدد"), "1", "3", "3"}));
    EXPECT_EQ(Shown(dialog, "totalQuantity").remove(QChar(0x200E)), "8.5");
    EXPECT_EQ(Shown(dialog, "totalAmount").remove(QChar(0x200E)), "6,000,003");
  });
  EXPECT_EQ(shown, 1);
}

TEST_F(StockDocumentDialogTest, A_screen_reader_has_names_for_what_the_window_shows) {
  View(kReceipt, 7, [&](QWidget& dialog) {
    EXPECT_EQ(test::InputsWithoutName(dialog), QStringList());
    EXPECT_EQ(dialog.findChild<QLabel*>("id")->accessibleName(), QStringLiteral("شماره رايانه اي: 7"));
    EXPECT_EQ(dialog.findChild<QLabel*>("code")->accessibleName(), QStringLiteral("شماره تاييد شده: موقت"));
  });
}

TEST_F(StockDocumentDialogTest, A_name_that_its_column_cuts_off_is_whole_in_a_tooltip_with_its_barcode) {
  base.Execute("update tblGood set Name='" + std::string(200, 'w') + "' where Barcode='200'");
  View(kReceipt, 7, [&](QWidget& dialog) {
    auto* const lines = dialog.findChild<QTableView*>("lines");
    const QPoint at = lines->visualRect(lines->model()->index(1, 2)).center();
    QHelpEvent rest(QEvent::ToolTip, at, lines->viewport()->mapToGlobal(at));
    QApplication::sendEvent(lines->viewport(), &rest);
    EXPECT_EQ(QToolTip::text(), QString(200, 'w') + QStringLiteral("\nباركد: 200"));
    QToolTip::hideText();
  });
}

TEST_F(StockDocumentDialogTest, Registering_asks_and_gives_the_number_after_the_highest) {
  messages.WillAnswer(FakeMessages::Answer::Yes);
  View(kReceipt, 7, [&](QWidget& dialog) {
    PressRegister(dialog);
    EXPECT_EQ(Shown(dialog, "code"), "42");
    EXPECT_FALSE(dialog.findChild<QPushButton*>("register")->isEnabled());
  });
  EXPECT_EQ(messages.Texts(), std::vector<std::string>{"آيا از ثبت نهايي رسيد انبار اطمينان داريد؟"});
  EXPECT_EQ(base.Rows("select ID,Code from tblInventoryReceipt order by ID"), "7|42\n8|41\n");
}

TEST_F(StockDocumentDialogTest, No_leaves_the_document_temporary) {
  messages.WillAnswer(FakeMessages::Answer::No);
  View(kReceipt, 7, [](QWidget& dialog) {
    PressRegister(dialog);
    EXPECT_EQ(Shown(dialog, "code"), QStringLiteral("موقت"));
    EXPECT_TRUE(dialog.findChild<QPushButton*>("register")->isEnabled());
  });
  EXPECT_EQ(base.Scalar("select Code from tblInventoryReceipt where ID=7"), "NULL");
}

TEST_F(StockDocumentDialogTest, The_first_dispatch_gets_number_1) {
  messages.WillAnswer(FakeMessages::Answer::Yes);
  View(kDispatch, 9, [](QWidget& dialog) {
    Press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(Shown(dialog, "code"), "1");
  });
  EXPECT_EQ(base.Scalar("select Code from tblInventoryDispatch where ID=9"), "1");
}

TEST_F(StockDocumentDialogTest, A_registered_document_shows_its_number_and_cannot_be_registered_again) {
  View(kReceipt, 8, [](QWidget& dialog) {
    EXPECT_EQ(Shown(dialog, "code"), "41");
    EXPECT_FALSE(dialog.findChild<QPushButton*>("register")->isEnabled());
  });
}

TEST_F(StockDocumentDialogTest, A_database_error_is_shown_and_the_window_stays_usable) {
  messages.WillAnswer(FakeMessages::Answer::Yes);
  messages.WillAnswer(FakeMessages::Answer::Yes);
  View(kReceipt, 7, [this](QWidget& dialog) {
    failing.Plan().FailAt(1);
    PressRegister(dialog);
    EXPECT_EQ(Shown(dialog, "code"), QStringLiteral("موقت"));
    PressRegister(dialog);
    EXPECT_EQ(Shown(dialog, "code"), "42");
  });
  ASSERT_EQ(messages.Shown().size(), 3U);
  EXPECT_EQ(messages.Shown()[1].title, "خطا");
}

TEST_F(StockDocumentDialogTest, A_deleted_document_is_reported_in_a_message) {
  const auto component = components.Create(kDispatch);
  auto& document = dynamic_cast<DocumentComponent&>(*component);
  document.SetConnectionString(base.ConnectionText());
  document.View(12345);
  EXPECT_EQ(messages.Texts(), std::vector<std::string>{"سندي با اين شماره رايانه اي موجود نيست."});
}

}  // namespace
}  // namespace koru
