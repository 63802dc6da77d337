// Figures that reach the grid from elsewhere while a user works in its window.

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

#include "tests/desktop/grid/GridViewTest.h"

namespace koru::test {
namespace {

class FiguresElsewhere : public GridViewTest {
 protected:
  /// The editor of a cell with 10 is open; nothing was typed.
  void OpenCell() {
    Start();
    grid.SetTextMatrix(2, 2, "10");
    grid.SetCurrent(2, 2);
    Press(Qt::Key_F2);
    ASSERT_NE(Editor(), nullptr);
  }
  /// The cell after a 5 that is typed into its editor.
  [[nodiscard]] std::string TypeFive() {
    Type("5");
    Press(Qt::Key_Return);
    return Cell(2, 2);
  }
};

TEST_F(FiguresElsewhere, Leave_the_open_editor_with_its_text_its_cursor_and_the_keyboard) {
  Start();
  grid.SetCurrent(2, 2);
  Type("77");
  ASSERT_NE(Editor(), nullptr);
  QLineEdit* const editor = Editor();
  for (const auto& [row, col] : {std::pair(3, 2), std::pair(2, 3), std::pair(2, 2)}) {
    EXPECT_TRUE(grid.UserEditElsewhere(row, col, "42"));
    QApplication::processEvents();
    EXPECT_EQ(Cell(row, col), "42");
    ASSERT_EQ(Editor(), editor) << row << "," << col;
    EXPECT_EQ(editor->text(), "77");
    EXPECT_EQ(editor->cursorPosition(), 2);
    EXPECT_TRUE(editor->hasFocus());
    EXPECT_EQ(Current(), std::pair(2, 2));
  }
  EXPECT_EQ(TypeFive(), "775") << "the desk's figure wins over the one that came while it was typed";
  EXPECT_EQ(Cell(3, 2), "42");
}

TEST_F(FiguresElsewhere, In_the_row_of_an_editor_in_which_nothing_was_typed_leave_its_text_selected) {
  ASSERT_NO_FATAL_FAILURE(OpenCell());
  EXPECT_TRUE(grid.UserEditElsewhere(2, 3, "42"));
  EXPECT_EQ(Editor()->selectedText(), "10");
  EXPECT_EQ(TypeFive(), "5");
}

TEST_F(FiguresElsewhere, In_its_row_leave_the_cursor_in_an_editor_in_which_the_user_has_only_moved) {
  ASSERT_NO_FATAL_FAILURE(OpenCell());
  Press(Qt::Key_Home);
  EXPECT_TRUE(grid.UserEditElsewhere(2, 3, "42"));
  EXPECT_EQ(TypeFive(), "510");
}

TEST_F(FiguresElsewhere, In_the_cell_of_an_editor_in_which_nothing_was_typed_become_its_selected_text) {
  ASSERT_NO_FATAL_FAILURE(OpenCell());
  EXPECT_TRUE(grid.UserEditElsewhere(2, 2, "12"));
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), "12");
  EXPECT_EQ(Editor()->selectedText(), "12");
  EXPECT_EQ(TypeFive(), "5");
}

TEST_F(FiguresElsewhere, Leave_the_keyboard_where_it_is_and_do_not_scroll) {
  for (int row = 4; row <= 200; ++row) grid.AddItem(std::to_string(row));
  Start();
  grid.SetCurrent(1, 2);
  other->setFocus();
  const int scrolled = view->verticalScrollBar()->value();
  EXPECT_TRUE(grid.UserEditElsewhere(200, 2, "42"));
  QApplication::processEvents();
  EXPECT_TRUE(other->hasFocus());
  EXPECT_EQ(view->verticalScrollBar()->value(), scrolled);
  EXPECT_EQ(Current(), std::pair(1, 2));
  EXPECT_EQ(view->model()->index(199, 2).data().toString(), "42");
}

TEST_F(FiguresElsewhere, While_the_user_is_asked_about_a_line_do_not_change_which_line_is_deleted) {
  Start();
  grid.SetCurrent(1, 2);
  grid.RowDeleting.Always([this] {
    QEventLoop question;
    QTimer::singleShot(0, &question, [&] {
      EXPECT_TRUE(grid.UserEditElsewhere(3, 2, "42"));
      question.quit();
    });
    question.exec();
  });
  Press(Qt::Key_Delete, Qt::ControlModifier);
  ASSERT_EQ(grid.Rows(), 3);
  EXPECT_EQ(Cell(1, 1), "مهره");
  EXPECT_EQ(Cell(2, 1), "واشر");
  EXPECT_EQ(Cell(2, 2), "42");
}

}  // namespace
}  // namespace koru::test
