#include "desktop/search/GoodSearchWindow.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QWindow>
#include <algorithm>
#include <memory>

#include "desktop/fields/SelectorRecords.h"
#include "tests/desktop/WindowTools.h"
#include "tests/search/GoodSearchTest.h"

namespace koru {
namespace {

using test::Open;
using test::Press;
using test::Type;

class GoodSearchWindowTest : public GoodSearchTest {
 protected:
  void SetUp() override {
    GoodSearchTest::SetUp();
    window = std::make_unique<GoodSearchWindow>(form, records);
    form.Show(false);
    Open(*window);
  }

  template <class Widget>
  Widget* Named(const char* name) {
    auto* const widget = window->findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  QLineEdit* Field(const char* name) { return Named<QLineEdit>(name); }
  QMenu* Menu() { return Named<QMenu>("menu"); }
  void RightClick(const char* name) {
    auto* const widget = Named<QWidget>(name);
    QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
                      widget->mapTo(window.get(), widget->rect().center()));
  }

  SelectorRecords records{database.Connector()};
  std::unique_ptr<GoodSearchWindow> window;
};

TEST_F(GoodSearchWindowTest, Every_criterion_that_narrows_the_search_is_there_under_its_own_name) {
  const std::vector<const Control*> notShown{&form.gmpProducer,  &form.FlexSearchResult, &form.pgbStatus,
                                             &form.menu,         &form.mnuHelp,          &form.mnuSearch,
                                             &form.mnuNewSearch, &form.mnuExit,          &form.Timer1};
  for (const Control* const control : form.Controls()) {
    if (std::find(notShown.begin(), notShown.end(), control) != notShown.end()) continue;
    const QWidget* const widget = window->findChild<QWidget*>(QString::fromStdString(control->Name()));
    ASSERT_NE(widget, nullptr) << control->Name();
    EXPECT_TRUE(widget->isVisible()) << control->Name();
  }
}

TEST_F(GoodSearchWindowTest, Every_command_is_visible_on_a_small_screen) {
  EXPECT_EQ(test::ButtonsCutOff(*window, test::kSmallWindow), QStringList());
}

TEST_F(GoodSearchWindowTest, A_screen_reader_has_a_name_for_every_input) {
  EXPECT_EQ(test::InputsWithoutName(*window), QStringList());
}

TEST_F(GoodSearchWindowTest, The_menu_of_a_text_box_copies_and_pastes_too) {
  QLineEdit* const box = Field("txtTitle");
  box->setFocus();
  box->setText(QStringLiteral("برنج"));
  box->selectAll();
  RightClick("txtTitle");
  QAction* copy = nullptr;
  QAction* paste = nullptr;
  for (QAction* const entry : Menu()->actions()) {
    if (entry->text().endsWith(QStringLiteral("رونوشت"))) copy = entry;
    if (entry->text().endsWith(QStringLiteral("چسباندن"))) paste = entry;
  }
  ASSERT_NE(copy, nullptr);
  ASSERT_NE(paste, nullptr);
  copy->trigger();
  Menu()->close();
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("برنج"));
  QLineEdit* const other = Field("txtCode");
  other->setFocus();
  RightClick("txtCode");
  paste->trigger();
  Menu()->close();
  EXPECT_EQ(other->text(), QStringLiteral("برنج"));
}

TEST_F(GoodSearchWindowTest, The_search_command_has_the_initial_focus_and_Tab_moves_to_the_first_criterion) {
  EXPECT_EQ(QApplication::focusWidget(), Named<QPushButton>("cmdSearch"));
  Press(Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget(), Field("txtBarCode"));
}

TEST_F(GoodSearchWindowTest, Shown_again_the_search_command_has_the_keyboard_wherever_it_was_left) {
  Named<QPushButton>("cmdExit")->setFocus();
  Press(Qt::Key_Escape);
  ASSERT_FALSE(form.Visible());
  window->hide();
  QWidget below;
  Open(below);
  form.Show(false);
  Open(*window);
  EXPECT_EQ(QApplication::focusWidget(), Named<QPushButton>("cmdSearch"));
}

TEST_F(GoodSearchWindowTest, Ctrl_S_leaves_the_condition_and_hides) {
  Field("txtMinPrice")->setFocus();
  Type("1500");
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(condition.Text(), " tblGood.Barcode<>''  and  RetailPrice >= 1500");
  EXPECT_FALSE(form.Visible());
}

TEST_F(GoodSearchWindowTest, Ctrl_Shift_S_does_nothing) {
  Field("txtMinPrice")->setFocus();
  Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(condition.Empty());
  EXPECT_TRUE(form.Visible());
}

TEST_F(GoodSearchWindowTest, Ctrl_N_empties_the_criteria) {
  Field("txtTitle")->setFocus();
  Type(QStringLiteral("کتاب"));
  Press(Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(Field("txtTitle")->text(), QString());
  EXPECT_TRUE(form.Visible());
}

TEST_F(GoodSearchWindowTest, Ctrl_Z_and_Escape_leave_and_what_was_typed_stays) {
  Field("txtTitle")->setFocus();
  Type(QStringLiteral("دفتر"));
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(form.txtTitle.Text(), "دفتر");
  form.Show(false);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form.Visible());
  EXPECT_TRUE(condition.Empty());
}

TEST_F(GoodSearchWindowTest, Enter_in_a_criterion_searches) {
  Field("txtMaxQty")->setFocus();
  Type("12abc");
  Press(Qt::Key_Return);
  EXPECT_EQ(condition.Text(), " tblGood.Barcode<>''  and  TotalQty <= 12");
  EXPECT_EQ(Field("txtMaxQty")->text(), "12");
}

TEST_F(GoodSearchWindowTest, Enter_on_another_command_presses_that_command) {
  Field("txtMaxQty")->setFocus();
  Type("12");
  window->findChild<QWidget*>("cmdNewSearch")->setFocus();
  Press(Qt::Key_Return);
  EXPECT_TRUE(form.Visible()) << "nothing was searched";
  EXPECT_EQ(Field("txtMaxQty")->text(), QString());
}

TEST_F(GoodSearchWindowTest, F1_shows_the_menu_with_its_four_captions) {
  Field("txtNotes")->setFocus();
  Press(Qt::Key_F1);
  ASSERT_TRUE(Menu()->isVisible());
  QStringList captions;
  for (const QAction* const action : Menu()->actions()) captions.append(action->text());
  EXPECT_EQ(captions, QStringList({QStringLiteral("F1                            راهنمايي"),
                                   QStringLiteral("Ctrl+S                          جستجو"),
                                   QStringLiteral("Ctrl+N               جستجوي جديد"),
                                   QStringLiteral("Ctrl+Z                            خروج")}));
}

TEST_F(GoodSearchWindowTest, A_right_click_shows_the_menu_instead_of_the_fields_own) {
  for (const char* const name : {"txtTitle", "lblTitle", "txtBarCode", "lblLocation", "lblMaxPrice"}) {
    RightClick(name);
    EXPECT_EQ(QApplication::activePopupWidget(), Menu()) << name;
    Menu()->close();
  }
}

TEST_F(GoodSearchWindowTest, A_menu_entry_does_what_its_command_does) {
  Field("txtTitle")->setFocus();
  Type("abc");
  Press(Qt::Key_F1);
  QTest::keyClick(Menu(), Qt::Key_Down);
  QTest::keyClick(Menu(), Qt::Key_Down);
  QTest::keyClick(Menu(), Qt::Key_Down);
  QTest::keyClick(Menu(), Qt::Key_Return);
  EXPECT_EQ(Field("txtTitle")->text(), QString()) << "the third entry is a new search";
}

TEST_F(GoodSearchWindowTest, F3_opens_the_picker_and_the_fields_show_what_was_picked) {
  picker.list = "('','100','200')";
  Field("txtCode")->setFocus();
  Press(Qt::Key_F3);
  EXPECT_EQ(picker.shown, 1);
  for (const char* const name : {"txtBarCode", "txtTitle", "txtCode"}) {
    EXPECT_EQ(Field(name)->text(), QStringLiteral("چند کالا"));
  }
  form.Timer1.Fire();
  EXPECT_TRUE(Named<QLabel>("patternHint")->text().startsWith(QStringLiteral("فقط كالاهاي انتخاب شده")));
}

TEST_F(GoodSearchWindowTest, A_field_that_gets_the_keyboard_is_selected_as_a_whole) {
  Field("txtTitle")->setFocus();
  Type("abc");
  Field("txtCode")->setFocus();
  Field("txtTitle")->setFocus();
  EXPECT_EQ(Field("txtTitle")->selectedText(), "abc");
}

TEST_F(GoodSearchWindowTest, The_goods_types_button_waits_for_a_type_and_then_opens_the_list) {
  form.Timer1.Fire();
  EXPECT_FALSE(Named<QPushButton>("cmdGoodType")->isEnabled());
  form.cmbGoodType.UserChoose(0);
  form.Timer1.Fire();
  form.chkEmptyAllConds.UserCheck(false);
  form.Timer1.Fire();
  ASSERT_TRUE(Named<QPushButton>("cmdGoodType")->isEnabled());
  QTest::mouseClick(Named<QPushButton>("cmdGoodType"), Qt::LeftButton);
  EXPECT_TRUE(Named<QComboBox>("cmbGoodType")->view()->isVisible());
  Named<QComboBox>("cmbGoodType")->hidePopup();
}

TEST_F(GoodSearchWindowTest, A_shortcut_pressed_in_a_selector_acts_once) {
  int pressed = 0;
  form.KeyDown.Always([&pressed](KeyPress) { ++pressed; });
  Named<QWidget>("gmpProductGroup")->setFocus();
  Press(Qt::Key_F1);
  EXPECT_EQ(pressed, 1);
}

}  // namespace
}  // namespace koru
