#include "desktop/toolkit/Keys.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QLineEdit>

namespace koru {
namespace {

KeyPress Pressed(int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
  return PressOf(QKeyEvent(QEvent::KeyPress, key, held));
}

TEST(Keys, Function_keys_letters_and_Delete_have_the_numbers_that_forms_know) {
  EXPECT_EQ(Pressed(Qt::Key_F1).key, 112);
  EXPECT_EQ(Pressed(Qt::Key_F3).key, 114);
  EXPECT_EQ(Pressed(Qt::Key_Delete).key, 46);
  EXPECT_EQ(Pressed(Qt::Key_S).key, 83);
  EXPECT_EQ(Pressed(Qt::Key_Enter).key, 13);
  EXPECT_EQ(Pressed(Qt::Key_VolumeUp).key, 0);
}

TEST(Keys, Held_keys_are_added_up) {
  EXPECT_EQ(Pressed(Qt::Key_S, Qt::ControlModifier).shift, 2);
  EXPECT_EQ(Pressed(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier).shift, 3);
  EXPECT_EQ(Pressed(Qt::Key_S, Qt::AltModifier).shift, 4);
}

TEST(Keys, Letters_of_the_Persian_keyboard_are_the_Latin_keys_in_their_places) {
  EXPECT_EQ(Pressed(u'س', Qt::ControlModifier).key, 'S');
  EXPECT_EQ(Pressed(u'د').key, 'N');
  EXPECT_EQ(Pressed(u'ظ').key, 'Z');
  EXPECT_EQ(Pressed(u'ي').key, 'D');
}

TEST(Keys, Pasted_Persian_digits_become_Latin_and_the_cursor_keeps_its_place) {
  QLineEdit edit;
  KeepDigitsLatin(edit);
  edit.setText("15");
  edit.setCursorPosition(1);
  edit.insert(QStringLiteral("۲۳"));
  EXPECT_EQ(edit.text(), "1235");
  EXPECT_EQ(edit.cursorPosition(), 3);
}

TEST(Keys, A_number_that_is_pasted_as_amounts_are_shown_is_that_number) {
  EXPECT_EQ(NumberTyped("1,200.5"), "1200.5");
  EXPECT_EQ(NumberTyped(QStringLiteral("۱٬۲۰۰٫۵")), "1200.5");
  EXPECT_EQ(NumberTyped(QStringLiteral("۱۲،۵")), QStringLiteral("12،5"));
  EXPECT_EQ(NumberTyped("7\t8\n9"), "7") << "one cell holds one number";
}

}  // namespace
}  // namespace koru
