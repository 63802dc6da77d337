#include "desktop/forms/LineFinderBar.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/forms/LineProgress.h"
#include "desktop/toolkit/QtText.h"
#include "tests/desktop/forms/InvCountingWindowTest.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

/// The counting of two goods: 6261 is short, 6262 has a surplus.
class LineFinderBarTest : public InvCountingWindowTest {
 protected:
  LineFinderBarTest() { window->activateWindow(); }

  void FindText(const QString& text) {
    Press(Qt::Key_F, Qt::ControlModifier);
    Type(text);
  }
  [[nodiscard]] GridView& Lines() const { return Find<GridView>("flexDetail"); }
  [[nodiscard]] int Shown() const { return Lines().model()->rowCount(); }
  [[nodiscard]] QString Progress() const { return Find<LineProgress>("lineProgress").accessibleName(); }
  [[nodiscard]] QLabel& Notice() const { return Find<QLabel>("linesShown"); }
};

TEST_F(LineFinderBarTest, Ctrl_F_finds_while_typing_and_Escape_returns_to_all_lines) {
  FindText(QStringLiteral("روغن"));
  EXPECT_EQ(Shown(), 1);
  EXPECT_TRUE(Notice().isVisible());
  EXPECT_TRUE(Notice().text().endsWith(QStringLiteral("فيلتر: 1 سطر از 2"))) << FromQt(Notice().text());
  Press(Qt::Key_Escape);
  EXPECT_EQ(Shown(), 2);
  EXPECT_FALSE(Notice().isVisible());
  EXPECT_TRUE(Lines().hasFocus());
}

TEST_F(LineFinderBarTest, The_notice_and_its_command_appear_without_moving_anything_else) {
  class Requests : public QObject {
   public:
    int layouts = 0;

   protected:
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
      if (event->type() == QEvent::LayoutRequest) ++layouts;
      return false;
    }
  } requests;
  QApplication::processEvents();  // the window has been laid out for the first time
  const QRect progress = Find<LineProgress>("lineProgress").geometry();
  const int commandWidth = Find<QPushButton>("cmdAllLines").sizeHint().width();
  window->installEventFilter(&requests);
  FindText(QStringLiteral("روغن"));
  QApplication::processEvents();
  EXPECT_EQ(requests.layouts, 0) << "the window is not laid out anew";
  EXPECT_EQ(Find<LineProgress>("lineProgress").geometry(), progress);
  EXPECT_GE(Find<QPushButton>("cmdAllLines").width(), commandWidth);
  EXPECT_GE(Notice().width(), Notice().sizeHint().width());
}

TEST_F(LineFinderBarTest, A_box_that_is_already_empty_is_left_by_Escape_too) {
  Press(Qt::Key_F, Qt::ControlModifier);
  Press(Qt::Key_Escape);
  EXPECT_TRUE(Lines().hasFocus());
}

TEST_F(LineFinderBarTest, Down_moves_to_the_line_that_was_found) {
  FindText(QStringLiteral("۶۲۶۲"));
  Press(Qt::Key_Down);
  EXPECT_TRUE(Lines().hasFocus());
  EXPECT_EQ(Counting().flexDetail.Row(), 2);
}

TEST_F(LineFinderBarTest, A_refused_figure_keeps_its_cell_and_the_lines) {
  TypeRefusedFigure();
  Counting().Finder().cboLineKind.UserChoose(static_cast<int>(LineKind::NotCounted));
  EXPECT_EQ(Shown(), 2);
  EXPECT_TRUE(Lines().IsTypedInto());
}

TEST_F(LineFinderBarTest, The_open_list_has_the_number_of_lines_of_each_kind) {
  auto& kinds = Find<QComboBox>("cboLineKind");
  kinds.showPopup();
  QStringList entries;
  for (int i = 0; i < kinds.count(); ++i) entries += kinds.itemData(i, Qt::AccessibleTextRole).toString();
  kinds.hidePopup();
  EXPECT_EQ(
      entries.join(u'|'),
      QStringLiteral("همه سطرها: 2|شمرده نشده: 0|شمارش‌هاي نابرابر: 0|"
                     "بدون شمارش مورد قبول: 0|"
                     "داراي كسري: 1|داراي اضافي: 1|برابر با موجودي دفتري: 0"));
}

TEST_F(LineFinderBarTest, The_progress_follows_every_figure) {
  EXPECT_EQ(Progress(), QStringLiteral("شمرده 2 · برابر 0 · قبول 2 · مانده 0"));
  Counting().cmdEdit.UserClick();
  Tick();
  Grid& lines = Counting().flexDetail;
  lines.UserEdit(1, LineColumn::SecondCounting, "10");
  lines.UserEdit(2, LineColumn::AcceptedCounting, "");
  QApplication::processEvents();
  EXPECT_EQ(Progress(), QStringLiteral("شمرده 2 · برابر 1 · قبول 1 · مانده 1"));
  lines.UserEdit(2, LineColumn::FirstCounting, "");
  QApplication::processEvents();
  EXPECT_EQ(Progress(), QStringLiteral("شمرده 1 · برابر 1 · قبول 1 · مانده 1"));
}

TEST_F(LineFinderBarTest, A_line_whose_figure_changes_stays_until_the_filter_is_applied_anew) {
  Counting().cmdEdit.UserClick();
  Tick();
  Counting().Finder().cboLineKind.UserChoose(static_cast<int>(LineKind::Short));
  EXPECT_EQ(Shown(), 1);
  Counting().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "12.5");
  QApplication::processEvents();
  EXPECT_EQ(Shown(), 1);
  Lines().ClickTitle(LineColumn::GoodName);
  EXPECT_EQ(Shown(), 0) << "a sort applies it";
}

TEST_F(LineFinderBarTest, Lines_whose_counts_differ_have_a_sign_beside_their_number) {
  Counting().cmdEdit.UserClick();
  Tick();
  Counting().flexDetail.UserEdit(2, LineColumn::SecondCounting, "8");
  const QAbstractItemModel& lines = *Lines().model();
  EXPECT_EQ(lines.headerData(0, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("1"));
  EXPECT_EQ(lines.headerData(1, Qt::Vertical, Qt::DisplayRole).toString(), QStringLiteral("≠ 2"));
  EXPECT_EQ(lines.headerData(1, Qt::Vertical, Qt::AccessibleTextRole).toString(),
            QStringLiteral("2: شمارش‌هاي اين سطر با هم برابر نيستند."));
}

TEST_F(LineFinderBarTest, Every_command_is_visible_on_a_small_screen_while_lines_are_hidden) {
  Counting().cmdEdit.UserClick();
  FindText(QStringLiteral("روغن"));
  EXPECT_EQ(test::ButtonsCutOff(*window, test::kSmallWindow), QStringList());
  EXPECT_EQ(test::InputsWithoutName(*window), QStringList());
  EXPECT_EQ(window->size(), test::kSmallWindow);
}

}  // namespace
}  // namespace koru
