#include "desktop/fields/DateBoxEdit.h"

#include <gtest/gtest.h>

#include <QCalendarWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QToolTip>
#include <QVBoxLayout>

#include "tests/desktop/PaintedTexts.h"
#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

using test::Open;
using test::Press;
using test::Type;

class DateBoxEditTest : public testing::Test {
 protected:
  DateBoxEditTest() {
    // The widgets belong to their window. NOLINTBEGIN(cppcoreguidelines-owning-memory)
    field = new DateBoxEdit(&window);
    other = new QPushButton(&window);
    auto* const layout = new QVBoxLayout(&window);
    // NOLINTEND(cppcoreguidelines-owning-memory)
    layout->addWidget(field);
    layout->addWidget(other);
    binding.Bind(date, *field);
    edit = field->findChild<QLineEdit*>();
    Open(window);
    other->setFocus();
    edit->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
  }

  test::NoScreen screen;
  Form form{screen, "frm"};
  DateBox date{form, "gdpFromDate"};
  QWidget window;
  DateBoxEdit* field = nullptr;
  QLineEdit* edit = nullptr;
  QPushButton* other = nullptr;
  FormBinding binding{form};
};

TEST_F(DateBoxEditTest, A_date_is_typed_digit_by_digit_over_the_one_before) {
  date.SetValue(ToGregorian({1403, 5, 6}));
  EXPECT_EQ(edit->text(), "1403/05/06");
  QApplication::processEvents();
  edit->selectAll();
  Type("14040115");
  Press(Qt::Key_Return);
  EXPECT_EQ(date.PersianText(), "1404/01/15");
}

TEST_F(DateBoxEditTest, Digits_of_the_Persian_keyboard_are_dates_too) {
  Type(QStringLiteral("۱۴۰۴۱۲۲۹"));
  other->setFocus();
  EXPECT_EQ(date.PersianText(), "1404/12/29");
  EXPECT_EQ(edit->text(), "1404/12/29");
}

TEST_F(DateBoxEditTest, A_date_that_does_not_exist_stays_visible_and_marks_the_field) {
  date.SetValue(ToGregorian({1403, 5, 6}));
  edit->selectAll();
  Type("14041230");  // 1404 has no 30 Esfand
  Press(Qt::Key_Return);
  EXPECT_EQ(date.PersianText(), "1403/05/06") << "the form keeps the date before";
  EXPECT_EQ(edit->text(), "1404/12/30");
  EXPECT_TRUE(edit->property("marked").toBool());
  other->setFocus();
  EXPECT_EQ(edit->text(), "1404/12/30");
  edit->setFocus();
  QApplication::processEvents();
  Type("1");
  EXPECT_FALSE(edit->property("marked").toBool());
}

TEST_F(DateBoxEditTest, The_mark_stays_until_the_user_types_or_restores_the_date_before_with_Escape) {
  date.SetValue(ToGregorian({1403, 5, 6}));
  edit->selectAll();
  Type("14041345");
  other->setFocus();
  EXPECT_TRUE(field->IsMarked());
  edit->setFocus();
  QTest::keyClick(edit, Qt::Key_Shift);
  Press(Qt::Key_Right);
  EXPECT_TRUE(field->IsMarked());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(field->IsMarked());
  EXPECT_EQ(edit->text(), "1403/05/06");
  EXPECT_EQ(date.PersianText(), "1403/05/06");
}

TEST_F(DateBoxEditTest, A_command_that_needs_valid_dates_returns_the_focus_and_shows_why) {
  Button save(form, "cmdTmpSave");
  int clicks = 0;
  save.Click.Always([&] { ++clicks; });
  binding.Bind(save, *other, BlockedBy::FiguresAndDates);
  date.SetValue(ToGregorian({1403, 5, 6}));
  edit->selectAll();
  Type("14041345");
  QTest::mouseClick(other, Qt::LeftButton);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(edit->hasFocus());
  EXPECT_TRUE(QToolTip::text().startsWith(QStringLiteral("اين تاريخ درست نيست")))
      << qPrintable(QToolTip::text());
  QApplication::processEvents();
  Type("14041229");
  QTest::mouseClick(other, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(date.PersianText(), "1404/12/29");
}

TEST_F(DateBoxEditTest, A_command_that_does_not_wait_for_dates_runs_and_a_form_that_starts_anew_has_no_mark) {
  Button leave(form, "cmdCancel");
  leave.Click.Always([&] { date.SetEnabled(false); });
  binding.Bind(leave, *other, BlockedBy::Figures);
  Type("14041345");
  QTest::mouseClick(other, Qt::LeftButton);
  EXPECT_FALSE(date.Enabled());
  EXPECT_FALSE(field->IsMarked());
}

TEST_F(DateBoxEditTest, A_date_that_is_typed_by_half_is_no_date) {
  Type("1404");
  other->setFocus();
  EXPECT_TRUE(date.IsEmpty());
  EXPECT_TRUE(edit->property("marked").toBool());
}

TEST_F(DateBoxEditTest, A_refused_date_is_removed_when_the_box_is_emptied_or_the_form_shows_another) {
  date.SetValue(ToGregorian({1403, 5, 6}));
  edit->selectAll();
  Type("14041345");
  other->setFocus();
  edit->setFocus();
  Press(Qt::Key_Delete);
  EXPECT_TRUE(date.IsEmpty());
  EXPECT_FALSE(field->IsMarked());
  EXPECT_EQ(edit->text(), "//");
  for (const SolarDate shown : {SolarDate{1404, 7, 1}, SolarDate{1404, 7, 1}}) {
    edit->setFocus();
    edit->selectAll();
    Type("14041345");
    other->setFocus();
    ASSERT_TRUE(field->IsMarked());
    field->SetDate(ToGregorian(shown));
    EXPECT_FALSE(field->IsMarked());
    EXPECT_EQ(edit->text(), "1404/07/01");
  }
}

TEST_F(DateBoxEditTest, Delete_empties_the_box) {
  date.SetValue(ToGregorian({1403, 5, 6}));
  int changes = 0;
  date.ValueChanged.Always([&] { ++changes; });
  Press(Qt::Key_Delete);
  EXPECT_TRUE(date.IsEmpty());
  EXPECT_EQ(changes, 1);
}

TEST_F(DateBoxEditTest, A_box_that_the_form_fills_again_when_it_is_emptied_shows_the_form_s_date) {
  date.ValueChanged.Always([this] {
    if (date.IsEmpty()) date.SetValue(ToGregorian({1404, 7, 1}));
  });
  date.SetValue(ToGregorian({1403, 5, 6}));
  Press(Qt::Key_Delete);
  EXPECT_EQ(edit->text(), "1404/07/01");
}

TEST_F(DateBoxEditTest, The_calendar_opens_on_the_date_and_Enter_picks_the_next_day) {
  date.SetValue(ToGregorian({1403, 12, 29}));
  Press(Qt::Key_F4);
  auto* const calendar = field->findChild<QCalendarWidget*>("calendar");
  ASSERT_NE(calendar, nullptr);
  ASSERT_TRUE(calendar->isVisible());
  EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Saturday);
  calendar->setSelectedDate(calendar->selectedDate().addDays(1));
  auto* const days = calendar->findChild<QTableView*>();
  QTest::keyClick(days, Qt::Key_Return);
  EXPECT_FALSE(calendar->isVisible());
  EXPECT_EQ(date.PersianText(), "1403/12/30");
}

TEST_F(DateBoxEditTest, The_calendar_writes_years_and_days_in_the_digits_of_the_box) {
  date.SetValue(ToGregorian({1403, 12, 29}));
  Press(Qt::Key_F4);
  auto& calendar = *field->findChild<QCalendarWidget*>("calendar");
  const auto expectLatin = [&](const QString& year) {
    const QString shown = test::PaintedTexts::Of(calendar).join(u' ');
    for (const QString& text : {year, QStringLiteral("29"), QStringLiteral("7")}) {
      EXPECT_TRUE(shown.contains(text)) << text.toStdString() << " in " << shown.toStdString();
    }
    for (const QChar letter : shown)
      EXPECT_FALSE(letter.isDigit() && letter.unicode() > u'9') << shown.toStdString();
  };
  expectLatin(QStringLiteral("1403"));
  calendar.showNextMonth();
  expectLatin(QStringLiteral("1404"));
  auto* const year = calendar.findChild<QSpinBox*>();
  ASSERT_NE(year, nullptr);
  EXPECT_EQ(year->text(), "1404") << "where another year is typed";
}

TEST_F(DateBoxEditTest, Looking_at_a_date_changes_nothing) {
  date.SetValue(ToGregorian({1403, 5, 6}));
  int changes = 0;
  date.ValueChanged.Always([&] { ++changes; });
  other->setFocus();
  edit->setFocus();
  other->setFocus();
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace koru
