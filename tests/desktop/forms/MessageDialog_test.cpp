#include "desktop/forms/MessageDialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>

#include "platform/text/Text.h"
#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

constexpr std::uint32_t kFormColor = 14799304;
constexpr std::uint32_t kButtonColor = 12490375;
constexpr std::uint32_t kFrameColor = 15655647;

class MessageDialogTest : public testing::Test {
 protected:
  /// Shows a message (0) or a question (1) and answers it; the answer.
  int Ask(int type, std::function<void(QWidget&)> answer) {
    message.SetFormTitle("خطا");
    message.SetFormMessage(text);
    message.SetFormType(type);
    message.SetFormBackColor(kFormColor);
    message.SetBtmBackColor(kButtonColor);
    message.SetFrameBackColor(kFrameColor);
    bool opened = false;
    test::WhenDialogOpens([&](QWidget& dialog) {
      opened = true;
      answer(dialog);
    });
    message.ClearShow();
    EXPECT_TRUE(opened);
    return message.Resualt();
  }

  static void PressIn(QWidget& dialog, int key, const QString& letter = {}) {
    QWidget* const at = dialog.focusWidget();
    if (letter.isEmpty()) {
      QTest::keyClick(at, static_cast<Qt::Key>(key));
    } else {
      QTest::simulateEvent(at, true, key, Qt::NoModifier, letter, false);
    }
  }

  MessageDialog message;
  std::string text = "آيا مطمئن هستيد؟";
};

TEST_F(MessageDialogTest, A_message_has_a_title_a_text_and_one_button_that_Enter_presses) {
  Ask(0, [](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("خطا"));
    EXPECT_EQ(dialog.findChild<QLabel*>("message")->text(), QStringLiteral("آيا مطمئن هستيد؟"));
    EXPECT_EQ(dialog.findChildren<QPushButton*>().size(), 1);
    EXPECT_EQ(dialog.findChild<QPushButton*>("ok")->text(), QStringLiteral("تاييد"));
    PressIn(dialog, Qt::Key_Return);
  });
}

TEST_F(MessageDialogTest, A_sign_distinguishes_an_error_from_a_warning_and_a_question) {
  const auto sign = [this](const char* title, int type) {
    MessageIcon::Kind kind = MessageIcon::Kind::Note;
    message.SetFormTitle(title);
    message.SetFormMessage(text);
    message.SetFormType(type);
    test::WhenDialogOpens([&kind](QWidget& dialog) {
      kind = dialog.findChild<MessageIcon*>("messageIcon")->Shown();
      dialog.close();
    });
    message.ClearShow();
    return kind;
  };
  EXPECT_EQ(sign("خطا", 0), MessageIcon::Kind::Error);
  EXPECT_EQ(sign("هشدار", 0), MessageIcon::Kind::Warning);
  EXPECT_EQ(sign("هشدار", 1), MessageIcon::Kind::Question);
  EXPECT_EQ(sign("كالاها", 0), MessageIcon::Kind::Note);
}

TEST_F(MessageDialogTest, A_question_is_answered_by_its_buttons) {
  EXPECT_EQ(Ask(1, [](QWidget& dialog) { dialog.findChild<QPushButton*>("yes")->click(); }), 1);
  EXPECT_EQ(Ask(1, [](QWidget& dialog) { dialog.findChild<QPushButton*>("no")->click(); }), 0);
}

TEST_F(MessageDialogTest, A_question_is_answered_from_the_keyboard_and_Enter_alone_destroys_nothing) {
  EXPECT_EQ(Ask(1, [](QWidget& dialog) { PressIn(dialog, Qt::Key_Return); }), 0);
  EXPECT_EQ(Ask(1, [](QWidget& dialog) { PressIn(dialog, 0x628, QStringLiteral("ب")); }), 1);
  EXPECT_EQ(Ask(1, [](QWidget& dialog) { PressIn(dialog, 0x62E, QStringLiteral("خ")); }), 0);
  EXPECT_EQ(Ask(1,
                [](QWidget& dialog) {
                  PressIn(dialog, Qt::Key_Backtab);
                  PressIn(dialog, Qt::Key_Return);
                }),
            1);
}

TEST_F(MessageDialogTest, Escape_answers_a_question_with_no) {
  EXPECT_EQ(Ask(1, [](QWidget& dialog) { PressIn(dialog, Qt::Key_Escape); }), 0);
  EXPECT_EQ(Ask(1,
                [](QWidget& dialog) {
                  PressIn(dialog, Qt::Key_Backtab);
                  PressIn(dialog, Qt::Key_Escape);
                }),
            0)
      << "also from yes";
}

TEST_F(MessageDialogTest, A_question_has_no_close_button_and_closing_it_otherwise_answers_no) {
  EXPECT_EQ(Ask(1,
                [](QWidget& dialog) {
                  EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint));
                  EXPECT_FALSE(dialog.windowFlags().testFlag(Qt::WindowSystemMenuHint));
                  EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowTitleHint));
                  dialog.close();  // as a window manager does by Alt+F4
                }),
            0);
  Ask(0, [](QWidget& dialog) {
    EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowCloseButtonHint)) << "a message can be closed";
    dialog.close();
  });
}

TEST_F(MessageDialogTest, The_buttons_of_a_question_name_the_keys_that_answer_it) {
  Ask(1, [](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QPushButton*>("yes")->text(), QStringLiteral("بلي (ب)"));
    EXPECT_EQ(dialog.findChild<QPushButton*>("no")->text(), QStringLiteral("خير (خ يا Esc)"));
    dialog.close();
  });
}

TEST_F(MessageDialogTest, Escape_acknowledges_a_message) {
  EXPECT_EQ(Ask(0, [](QWidget& dialog) { PressIn(dialog, Qt::Key_Escape); }), -1);
}

TEST_F(MessageDialogTest, The_colours_have_red_in_the_low_byte_and_are_really_used) {
  Ask(1, [](QWidget& dialog) {
    EXPECT_GT(test::PixelsOf(dialog, QColor(200, 209, 225)), 500);
    EXPECT_GT(test::PixelsOf(dialog, QColor(223, 226, 238)), 500);
    EXPECT_GT(test::PixelsOf(dialog, QColor(135, 150, 190)), 500);
    dialog.close();
  });
}

TEST_F(MessageDialogTest, A_server_s_words_stand_below_the_sentence_and_can_be_copied) {
  text = "ارتباط با بانك اطلاعاتي برقرار نشد.\nLogin failed for user 'sa'.";
  Ask(0, [](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>("message")->text(),
              QStringLiteral("ارتباط با بانك اطلاعاتي برقرار نشد."));
    auto* const detail = dialog.findChild<QPlainTextEdit*>("detail");
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->toPlainText(), "Login failed for user 'sa'.");
    EXPECT_TRUE(detail->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
    dialog.close();
  });
}

TEST_F(MessageDialogTest, A_path_has_a_line_of_its_own_and_English_is_small) {
  text = "عمليات انجام نشد.\nپروندة پايگاه داده پيدا نشد: " + LeftToRight("/انبار/a b.db") +
         "، آن را برگردانيد.\ndatabase or disk is full";
  Ask(0, [](QWidget& dialog) {
    auto* const detail = dialog.findChild<QPlainTextEdit*>("detail");
    ASSERT_NE(detail, nullptr);
    EXPECT_EQ(detail->toPlainText(),
              QStringLiteral("پروندة پايگاه داده پيدا نشد:\n\u2066/انبار/a b.db\u2069\n"
                             "آن را برگردانيد.\ndatabase or disk is full"));
    const auto sizeOf = [&](int line) {
      QTextCursor cursor(detail->document()->findBlockByNumber(line));
      cursor.movePosition(QTextCursor::NextCharacter);
      return cursor.charFormat().fontPointSize();
    };
    const auto isRightToLeft = [&](int line) {
      return detail->document()->findBlockByNumber(line).text().isRightToLeft();
    };
    for (const int english : {1, 3}) {
      EXPECT_FALSE(isRightToLeft(english));
      EXPECT_GT(sizeOf(english), 0);
      EXPECT_LT(sizeOf(english), detail->font().pointSizeF());
    }
    for (const int persian : {0, 2}) EXPECT_TRUE(isRightToLeft(persian));
    dialog.close();
  });
  text = "پروندة اكسل نوشته نشد: " + LeftToRight("/a.xlsx");
  Ask(0, [](QWidget& dialog) {
    EXPECT_EQ(dialog.findChild<QLabel*>("message")->text(), QStringLiteral("پروندة اكسل نوشته نشد:"));
    EXPECT_EQ(dialog.findChild<QPlainTextEdit*>("detail")->toPlainText(),
              QStringLiteral("\u2066/a.xlsx\u2069"));
    dialog.close();
  });
}

TEST_F(MessageDialogTest, A_long_text_is_wrapped_and_whole) {
  text.clear();
  for (int i = 0; i < 40; ++i) text += "اين شمارش ثبت نهايي شده است. ";
  Ask(0, [](QWidget& dialog) {
    const auto* const label = dialog.findChild<QLabel*>("message");
    EXPECT_LT(dialog.width(), 800);
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    dialog.close();
  });
}

}  // namespace
}  // namespace koru
