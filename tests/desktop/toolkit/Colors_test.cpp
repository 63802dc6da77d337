#include "desktop/toolkit/Colors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QVBoxLayout>
#include <map>

#include "tests/desktop/Contrast.h"
#include "tests/desktop/WindowTools.h"

namespace koru::test {
namespace {

/// Windows on a light desktop (false) and on a dark one.
class ColorsOfAllWindows : public testing::TestWithParam<bool> {
 protected:
  ColorsOfAllWindows() { SetColors(*qApp, DesktopPalette(GetParam())); }
  ~ColorsOfAllWindows() override { SetColors(*qApp, DesktopPalette(false)); }
};

TEST_P(ColorsOfAllWindows, Texts_and_hints_have_a_contrast_of_four_and_a_half_on_every_ground) {
  const QPalette palette = QApplication::palette();
  for (const auto ground : {QPalette::Window, QPalette::Base, QPalette::AlternateBase, QPalette::Button}) {
    for (const auto text :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::PlaceholderText}) {
      EXPECT_GE(Contrast(palette.color(text), palette.color(ground)), 4.5) << text << " on " << ground;
    }
  }
  EXPECT_GE(Contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 4.5);
  EXPECT_GE(Contrast(palette.color(QPalette::ToolTipText), palette.color(QPalette::ToolTipBase)), 4.5);
}

TEST_P(ColorsOfAllWindows, A_hint_is_as_dark_as_a_placeholder) {
  QLabel hint(QStringLiteral("Enter"));
  hint.setProperty("hint", true);
  hint.ensurePolished();
  EXPECT_EQ(hint.palette().color(hint.foregroundRole()),
            QApplication::palette().color(QPalette::PlaceholderText));
}

/// No style sheet gives a field the ground of the other desktop.
TEST_P(ColorsOfAllWindows, What_a_field_shows_can_be_read) {
  QWidget window;
  QVBoxLayout layout(&window);
  QLineEdit edit(QStringLiteral("1234567890"));
  QLineEdit readOnly(QStringLiteral("1234567890"));
  readOnly.setReadOnly(true);
  QLineEdit marked(QStringLiteral("1234567890"));
  marked.setProperty("marked", true);
  QPushButton button(QStringLiteral("1234567890"));
  QPushButton mainButton(QStringLiteral("1234567890"));
  mainButton.setProperty("main", true);
  QComboBox list;
  list.addItem(QStringLiteral("1234567890"));
  QLabel notice(QStringLiteral("1234567890"));
  notice.setProperty("notice", true);
  QLabel value(QStringLiteral("1234567890"));
  value.setProperty("value", true);
  for (QWidget* const field : std::initializer_list<QWidget*>{&edit, &readOnly, &marked, &button, &mainButton,
                                                              &list, &notice, &value}) {
    layout.addWidget(field);
  }
  window.show();
  for (QWidget* const field : std::initializer_list<QWidget*>{&edit, &readOnly, &marked, &button, &mainButton,
                                                              &list, &notice, &value}) {
    const Grounds shown = GroundsOf(field->grab(field->rect().adjusted(8, 6, -40, -6)).toImage());
    EXPECT_EQ(shown.ground.lightness() < 128, GetParam() != (field == &mainButton))
        << field->metaObject()->className();
    EXPECT_GE(Contrast(shown.text, shown.ground), 4.5) << field->metaObject()->className();
  }
}

TEST_P(ColorsOfAllWindows, A_box_that_is_not_ticked_has_an_edge_with_a_contrast_of_three) {
  QCheckBox box;
  QRadioButton choice;
  const std::map<QAbstractButton*, QStyle::SubElement> indicators = {
      {&box, QStyle::SE_CheckBoxIndicator}, {&choice, QStyle::SE_RadioButtonIndicator}};
  for (const auto& [button, indicator] : indicators) {
    button->show();
    QStyleOptionButton option;
    option.initFrom(button);
    const QRect place = button->style()->subElementRect(indicator, &option, button);
    const Grounds shown = GroundsOf(button->grab(place).toImage());
    EXPECT_GE(Contrast(shown.text, shown.ground), 3);
    EXPECT_GE(Contrast(shown.text, QApplication::palette().color(QPalette::Window)), 3);
  }
}

INSTANTIATE_TEST_SUITE_P(Desktop, ColorsOfAllWindows, testing::Bool(),
                         [](const auto& dark) { return dark.param ? "dark" : "light"; });

}  // namespace
}  // namespace koru::test
