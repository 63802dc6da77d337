#include "desktop/toolkit/PrintChoice.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QFileSystemModel>
#include <QPrinter>
#include <QSpinBox>

#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

class PrintChoice : public testing::Test {
 protected:
  template <class Answer>
  bool Ask(const Answer& answer) {
    test::WhenDialogOpens([&](QWidget& dialog) {
      // A dialog that lists a folder opens its files, including the database.
      EXPECT_EQ(dialog.findChild<QFileSystemModel*>(), nullptr);
      answer(dialog);
    });
    return AskHowToPrint(printer, {QStringLiteral("دفتر"), QStringLiteral("انبار")}, 12, nullptr);
  }
  static void Set(const QWidget& dialog, const char* name, int value) {
    dialog.findChild<QSpinBox*>(QLatin1String(name))->setValue(value);
  }
  static void Click(const QWidget& dialog, const char* name) {
    dialog.findChild<QAbstractButton*>(QLatin1String(name))->click();
  }

  QPrinter printer;
};

TEST_F(PrintChoice, Offers_the_printers_and_all_pages_once) {
  EXPECT_TRUE(Ask([](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QComboBox*>()->count(), 2);
    EXPECT_EQ(dialog.layoutDirection(), Qt::RightToLeft);
    Click(dialog, "ok");
  }));
  EXPECT_EQ(printer.printRange(), QPrinter::PageRange);
  EXPECT_EQ(printer.fromPage(), 1);
  EXPECT_EQ(printer.toPage(), 12);
  EXPECT_EQ(printer.copyCount(), 1);
}

TEST_F(PrintChoice, Takes_the_pages_in_either_order_and_the_copies) {
  EXPECT_TRUE(Ask([](QWidget& dialog) {
    Set(dialog, "from", 9);
    Set(dialog, "to", 3);
    Set(dialog, "copies", 2);
    Click(dialog, "ok");
  }));
  EXPECT_EQ(printer.fromPage(), 3);
  EXPECT_EQ(printer.toPage(), 9);
  EXPECT_EQ(printer.copyCount(), 2);
}

TEST_F(PrintChoice, Prints_nothing_when_it_is_given_up) {
  EXPECT_FALSE(Ask([](QWidget& dialog) {
    Set(dialog, "from", 9);
    Click(dialog, "cancel");
  }));
  EXPECT_EQ(printer.fromPage(), 0);
}

}  // namespace
}  // namespace koru
