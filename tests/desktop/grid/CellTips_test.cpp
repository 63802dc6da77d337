#include <gtest/gtest.h>

#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class CellTipsTest : public GridViewTest {
 protected:
  /// The tooltip of a cell; empty if none is shown.
  QString TipAt(int row, int col) {
    const QPoint at = view->visualRect(view->model()->index(row - 1, col)).center();
    QHelpEvent rest(QEvent::ToolTip, at, view->viewport()->mapToGlobal(at));
    QApplication::sendEvent(view->viewport(), &rest);
    return QToolTip::text();
  }
};

TEST_F(CellTipsTest, A_name_that_its_cell_cuts_off_is_whole_in_a_tooltip) {
  const std::string name =
      "پودر لباسشويي ماشيني دستي پانصد گرمي با رايحه گل ياس و قدرت لكه بري بيشتر از هميشه";
  grid.SetTextMatrix(2, 1, name);
  Start();
  EXPECT_EQ(TipAt(1, 1), QString()) << "a name that fits has none";
  EXPECT_EQ(TipAt(2, 1).toStdString(), name);
}

TEST_F(CellTipsTest, A_number_that_its_cell_cuts_off_is_whole_in_a_tooltip_above_the_words_of_its_mark) {
  view->SetColumnStyle(2, {.number = true,
                           .grouped = true,
                           .sign = {},
                           .color = {},
                           .maxUnmarked = 1e9,
                           .markText = QStringLiteral("بزرگ")});
  grid.SetTextMatrix(1, 2, "12345678901");
  Start();
  EXPECT_EQ(TipAt(1, 2), QStringLiteral("بزرگ"));
  view->setColumnWidth(2, 50);
  EXPECT_EQ(TipAt(1, 2), QStringLiteral("12,345,678,901\nبزرگ"));
}

TEST_F(CellTipsTest, Names_that_look_like_markup_are_shown_letter_by_letter) {
  grid.SetTextMatrix(1, 1, "<b>" + std::string(80, 'w') + "</b>");
  Start();
  const QString tip = TipAt(1, 1);
  EXPECT_TRUE(tip.contains(QStringLiteral("&lt;b&gt;"))) << tip.toStdString();
}

TEST_F(CellTipsTest, A_title_that_its_column_cuts_off_is_whole_in_a_tooltip) {
  EXPECT_EQ(view->model()->headerData(2, Qt::Horizontal, Qt::ToolTipRole).toString(),
            QStringLiteral("شمارش"));
}

}  // namespace
}  // namespace koru::test
