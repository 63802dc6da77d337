#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QShortcut>

#include "tests/desktop/forms/InvCountingWindowTest.h"

namespace koru {
namespace {

using test::Press;
using test::Type;

/// Undo, redo and accepting equal counts in the window of a counting that is being edited.
class EntryCommands : public InvCountingWindowTest {
 protected:
  void SetUp() override {
    window->activateWindow();
    QTest::keyClick(window, Qt::Key_E, Qt::ControlModifier);
    Tick();
    Find<GridView>("flexDetail").setFocus();
    Counting().flexDetail.SetCurrent(1, LineColumn::SecondCounting);
  }
  std::string Second(int row) {
    return std::string(Counting().flexDetail.TextMatrix(row, LineColumn::SecondCounting));
  }
  std::string Accepted(int row) {
    return std::string(Counting().flexDetail.TextMatrix(row, LineColumn::AcceptedCounting));
  }
  /// The editor that the keyboard is in; nullptr if no cell is open.
  static QLineEdit* Editor() { return qobject_cast<QLineEdit*>(QApplication::focusWidget()); }
};

TEST_F(EntryCommands, Control_Z_takes_a_typed_figure_back_and_Control_Y_and_Control_Shift_Z_enter_it_again) {
  Type("8");
  Press(Qt::Key_Return);
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Second(1), "");
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Second(1), "8");
  Press(Qt::Key_Z, Qt::ControlModifier);
  Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Second(1), "8");
  EXPECT_EQ(QApplication::focusWidget(), &Find<GridView>("flexDetail"));
}

TEST_F(EntryCommands, In_an_open_cell_the_keys_are_those_of_its_text) {
  Type("8");
  Press(Qt::Key_Return);
  Counting().flexDetail.SetCurrent(2, LineColumn::SecondCounting);
  Type("12");
  ASSERT_NE(Editor(), nullptr);
  Press(Qt::Key_Z, Qt::ControlModifier);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), "");
  Press(Qt::Key_Y, Qt::ControlModifier);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), "12");
  EXPECT_EQ(Second(1), "8") << "nothing of the lines was undone";
}

TEST_F(EntryCommands, In_a_field_the_keys_are_those_of_its_text) {
  Type("8");
  Press(Qt::Key_Return);
  Find<QPlainTextEdit>("txtNotes").setFocus();
  Type("a");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Counting().txtNotes.Text(), "");
  EXPECT_EQ(Second(1), "8");
}

TEST_F(EntryCommands, A_paste_is_taken_back_in_one_step) {
  QApplication::clipboard()->setText(QStringLiteral("3\n4"));
  Press(Qt::Key_V, Qt::ControlModifier);
  ASSERT_EQ(Second(1) + Second(2), "34");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Second(1) + Second(2), "");
}

TEST_F(EntryCommands, The_menu_stores_an_open_cell_first) {
  Type("8");
  ASSERT_NE(Editor(), nullptr);
  Type("8");
  Press(Qt::Key_Return);
  Counting().flexDetail.SetCurrent(2, LineColumn::SecondCounting);
  Type("9");
  Find<QAction>("mnuUndo").trigger();
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Second(2), "") << "the figure that was open is the latest step";
  EXPECT_EQ(Second(1), "88");
}

TEST_F(EntryCommands, A_refused_figure_in_an_open_cell_blocks_the_menu) {
  TypeRefusedFigure();
  Find<QAction>("mnuAcceptEqual").trigger();
  EXPECT_EQ(world.messages.Texts(), std::vector<std::string>{"تعداد كمتر از اندازة مجاز است."});
  EXPECT_NE(Editor(), nullptr);
}

TEST_F(EntryCommands, Accepting_fills_the_lines_that_agree_and_one_undo_empties_them) {
  Counting().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, "");
  Counting().flexDetail.UserEdit(1, LineColumn::SecondCounting, "10.0");
  ASSERT_TRUE(Find<QAction>("mnuAcceptEqual").isEnabled());
  Find<QAction>("mnuAcceptEqual").trigger();
  EXPECT_EQ(Accepted(1), "10");
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Accepted(1), "");
}

}  // namespace
}  // namespace koru
