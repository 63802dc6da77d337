#include <gtest/gtest.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class GridMenusTest : public GridViewTest {
 protected:
  /// Opens the menu of a cell and chooses the entry of that caption; returns all captions.
  QStringList Choose(int row, int col, const QString& caption) {
    QStringList captions;
    QTimer::singleShot(0, qApp, [&] {
      auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      QAction* chosen = nullptr;
      for (QAction* const entry : menu->actions()) {
        captions += entry->text().section(u'\t', 0, 0) + (entry->isEnabled() ? "" : " -");
        if (entry->isEnabled() && entry->text().startsWith(caption)) chosen = entry;
      }
      menu->setActiveAction(chosen);
      QTest::keyClick(menu, chosen == nullptr ? Qt::Key_Escape : Qt::Key_Return);
    });
    grid.SetCurrent(row, col);
    const QPoint at = view->visualRect(view->currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(view->viewport(), &event);
    return captions;
  }
};

TEST_F(GridMenusTest, The_menu_of_a_cell_copies_and_pastes_in_Persian) {
  Start();
  QApplication::clipboard()->setText("8");
  grid.SetTextMatrix(1, 2, "15");
  const QStringList captions = Choose(1, 2, QStringLiteral("رونوشت"));
  EXPECT_EQ(captions.mid(0, 2), QStringList({QStringLiteral("رونوشت"), QStringLiteral("چسباندن")}))
      << captions.join('|').toStdString();
  EXPECT_EQ(QApplication::clipboard()->text(), "15");
  Choose(2, 3, QStringLiteral("چسباندن"));
  EXPECT_EQ(Cell(2, 3), "15");
}

TEST_F(GridMenusTest, Nothing_is_pasted_where_nothing_can_be_typed_and_a_list_offers_copying_alone) {
  QApplication::clipboard()->setText("15");
  grid.SetLocked(true);
  Start();
  EXPECT_EQ(Choose(1, 2, QStringLiteral("چسباندن")).value(1), QStringLiteral("چسباندن -"));
  EXPECT_EQ(Cell(1, 2), "");
  grid.SetEditMask("0000");
  EXPECT_EQ(Choose(2, 1, QStringLiteral("رونوشت")), QStringList(QStringLiteral("رونوشت")));
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("مهره"));
}

}  // namespace
}  // namespace koru::test
