#include "desktop/search/InvSearchWindow.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <memory>

#include "desktop/fields/DateBoxEdit.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/grid/GridView.h"
#include "tests/desktop/WindowTools.h"
#include "tests/search/InvSearchTest.h"

namespace koru {
namespace {

using test::Open;
using test::Press;
using test::Type;

class InvSearchWindowTest : public InvSearchTest {
 protected:
  void SetUp() override {
    InvSearchTest::SetUp();
    window = std::make_unique<InvSearchWindow>(form, records);
    form.Show(false);
    Open(*window);
  }

  template <class Widget>
  Widget* Named(const char* name) {
    auto* const widget = window->findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
  }
  GridView* Results() { return Named<GridView>("flexSearch"); }
  [[nodiscard]] QPoint CentreOf(int row, int col) {
    return Results()->visualRect(Results()->model()->index(row, col)).center();
  }

  SelectorRecords records{database.Connector()};
  std::unique_ptr<InvSearchWindow> window;
};

TEST_F(InvSearchWindowTest, Every_criterion_and_command_is_there_under_its_own_name) {
  for (const Control* const control : form.Controls()) {
    const QWidget* const widget = window->findChild<QWidget*>(QString::fromStdString(control->Name()));
    ASSERT_NE(widget, nullptr) << control->Name();
    EXPECT_TRUE(widget->isVisible()) << control->Name();
  }
}

TEST_F(InvSearchWindowTest, Every_command_is_visible_on_a_small_screen) {
  EXPECT_EQ(test::ButtonsCutOff(*window, test::kSmallWindow), QStringList());
}

TEST_F(InvSearchWindowTest, A_screen_reader_has_a_name_for_every_input) {
  EXPECT_EQ(test::InputsWithoutName(*window), QStringList());
}

TEST_F(InvSearchWindowTest, Enter_in_a_criterion_searches_and_moves_the_focus_to_the_results) {
  Named<QLineEdit>("txtid1")->setFocus();
  Type("3");
  Press(Qt::Key_Return);
  EXPECT_EQ(Keys(), (std::vector<int>{3, 10, 12}));
  EXPECT_EQ(Named<QLabel>("lblResultCount")->text(), QStringLiteral("3 شمارش يافت شد"));
  EXPECT_EQ(QApplication::focusWidget(), Results());
  EXPECT_EQ(Results()->model()->rowCount(), 3);
  EXPECT_FALSE(Named<QLabel>("emptyResult")->isVisible());
}

TEST_F(InvSearchWindowTest, Enter_in_a_date_box_takes_the_date_first) {
  window->findChild<QWidget*>("gdpcreatedate1")->setFocus();
  Type("14030104");
  Press(Qt::Key_Return);
  EXPECT_EQ(Keys(), (std::vector<int>{10, 12}));
}

TEST_F(InvSearchWindowTest, A_date_that_is_none_is_marked_and_nothing_is_searched) {
  window->findChild<QWidget*>("gdpcreatedate1")->setFocus();
  Type("14031399");
  Press(Qt::Key_Return);
  EXPECT_TRUE(NewStatements().empty());
  EXPECT_TRUE(Keys().empty());
}

TEST_F(InvSearchWindowTest, A_date_that_is_none_holds_the_button_back_too_and_a_new_search_forgets_it) {
  auto* const date = window->findChild<QWidget*>("gdpToDate1")->findChild<QLineEdit*>();
  date->setFocus();
  Type("14031399");
  QTest::mouseClick(Named<QPushButton>("cmdSearch"), Qt::LeftButton);
  EXPECT_TRUE(NewStatements().empty());
  EXPECT_TRUE(date->hasFocus());
  Named<QLineEdit>("txtid1")->setFocus();
  Press(Qt::Key_Return);
  EXPECT_TRUE(NewStatements().empty()) << "from another criterion, too";
  EXPECT_TRUE(date->hasFocus());
  QTest::mouseClick(Named<QPushButton>("cmdNew"), Qt::LeftButton);
  QTest::mouseClick(Named<QPushButton>("cmdSearch"), Qt::LeftButton);
  EXPECT_EQ(Keys().size(), 5U);
}

TEST_F(InvSearchWindowTest, The_wheel_leaves_the_creator_alone) {
  auto* const creator = Named<QComboBox>("cmbcreator");
  EXPECT_FALSE(test::TurnWheel(*creator, -120));
  EXPECT_EQ(form.cmbcreator.ListIndex(), -1);
}

TEST_F(InvSearchWindowTest, Enter_on_a_result_opens_it_and_leaves_the_search) {
  Named<QLineEdit>("txtCode")->setFocus();
  Type("K-1");
  Press(Qt::Key_Return);
  Press(Qt::Key_Return);
  EXPECT_EQ(opened, std::vector<std::int32_t>{1});
  EXPECT_FALSE(form.Visible());
}

TEST_F(InvSearchWindowTest, A_double_click_opens_the_result_under_it) {
  form.cmdSearch.UserClick();
  const QPoint third = CentreOf(2, 4);
  QTest::mouseClick(Results()->viewport(), Qt::LeftButton, {}, third);
  QTest::mouseDClick(Results()->viewport(), Qt::LeftButton, {}, third);
  EXPECT_EQ(opened, std::vector<std::int32_t>{3});
}

TEST_F(InvSearchWindowTest, A_click_on_a_header_sorts_and_a_double_click_there_opens_nothing) {
  form.cmdSearch.UserClick();
  QHeaderView* const header = Results()->horizontalHeader();
  QCoreApplication::processEvents();
  const QPoint manual(header->sectionViewportPosition(3) + 8, header->height() / 2);
  QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, manual);
  EXPECT_EQ(Column(3), (std::vector<std::string>{"9", "", "A-1", "A-10", "B"}))
      << "the number 9 first, then the texts";
  EXPECT_EQ(Cell(1, 0), "1");
  QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, manual);
  EXPECT_TRUE(opened.empty());
}

TEST_F(InvSearchWindowTest, An_empty_result_is_said_in_words) {
  EXPECT_TRUE(Named<QLabel>("emptyResult")->isVisible()) << "before a search it says what to do";
  Named<QLineEdit>("txtName")->setFocus();
  Type(QStringLiteral("ناموجود"));
  Press(Qt::Key_Return);
  EXPECT_EQ(Named<QLabel>("emptyResult")->text(), QStringLiteral("شمارشي با اين مشخصات يافت نشد."));
  EXPECT_EQ(Named<QLabel>("lblResultCount")->text(), QStringLiteral("شمارشي يافت نشد."));
  EXPECT_EQ(QApplication::focusWidget(), Named<QLineEdit>("txtName"))
      << "the criterion can be changed at once";
}

TEST_F(InvSearchWindowTest, Delete_takes_the_creator_back) {
  auto* const creator = Named<QComboBox>("cmbcreator");
  creator->setFocus();
  Press(Qt::Key_Down);
  ASSERT_EQ(form.cmbcreator.ListIndex(), 0);
  Press(Qt::Key_Delete);
  EXPECT_EQ(form.cmbcreator.ListIndex(), -1);
  EXPECT_EQ(creator->currentIndex(), -1);
}

TEST_F(InvSearchWindowTest, Escape_leaves_from_a_criterion_and_from_the_results_and_the_criteria_stay) {
  Named<QLineEdit>("txtNotes")->setFocus();
  Type(QStringLiteral("ماهانه"));
  Press(Qt::Key_Return);
  ASSERT_EQ(QApplication::focusWidget(), Results());
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form.Visible());
  form.Show(false);
  Named<QLineEdit>("txtNotes")->setFocus();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(Named<QLineEdit>("txtNotes")->text(), QStringLiteral("ماهانه"));
}

TEST_F(InvSearchWindowTest, Each_showing_begins_in_the_first_criterion) {
  QWidget below;
  for (const char* const leftFrom : {"txtid1", "cmdExit", "txtNotes"}) {
    EXPECT_EQ(QApplication::focusWidget(), Named<QLineEdit>("txtid1"));
    Named<QWidget>(leftFrom)->setFocus();
    Press(Qt::Key_Escape);
    ASSERT_FALSE(form.Visible());
    window->hide();
    Open(below);
    form.Show(false);
    Open(*window);
  }
  EXPECT_EQ(QApplication::focusWidget(), Named<QLineEdit>("txtid1"));
  EXPECT_EQ(form.Focus(), &form.txtid1);
}

TEST_F(InvSearchWindowTest, It_fits_on_a_small_screen) { EXPECT_LT(window->minimumSizeHint().width(), 1000); }

TEST_F(InvSearchWindowTest, Enter_on_a_command_presses_that_command) {
  Named<QLineEdit>("txtNotes")->setFocus();
  Type("x");
  Named<QPushButton>("cmdNew")->setFocus();
  Press(Qt::Key_Return);
  EXPECT_EQ(form.txtNotes.Text(), "");
  EXPECT_TRUE(NewStatements().empty());
}

TEST_F(InvSearchWindowTest, The_results_take_the_room_of_a_larger_window) {
  window->resize(1240, 700);
  QCoreApplication::processEvents();
  const QSize results = Results()->size();
  const auto* const commands = Named<QWidget>("Frame1");
  const auto* const criteria = Named<QWidget>("Frame3");
  const QSize frame = criteria->size();
  const int left = commands->x();
  window->resize(1440, 800);
  QCoreApplication::processEvents();
  EXPECT_EQ(Results()->size(), results + QSize(200, 100));
  EXPECT_EQ(criteria->size(), frame + QSize(200, 0));
  EXPECT_NEAR(commands->x(), left + 100, 1);
}

TEST_F(InvSearchWindowTest, Thirty_thousand_countings_are_listed_and_the_last_can_be_reached) {
  database.InsertRows("tblInventoryCounting (ID,Code,ManualCode,InventoryID,CreatorID)", 100, 30'099,
                      [](int i) {
                        const std::string number = std::to_string(i);
                        return number + "," + number + ",'M-" + number + "',7,5";
                      });
  form.cmdSearch.UserClick();
  EXPECT_EQ(Results()->model()->rowCount(), 30005);
  Results()->setFocus();
  Press(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(form.flexSearch.Row(), 30005);
}

}  // namespace
}  // namespace koru
