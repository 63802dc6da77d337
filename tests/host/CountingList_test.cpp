#include "host/CountingList.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/host/HostFixture.h"

namespace koru {
namespace {

class CountingListTest : public test::HostWindowTest {
 protected:
  void SetUp() override {
    HostWindowTest::SetUp();
    program_ = Start();
    test::Open(program_->window);
    program_->window.Start();
  }
  [[nodiscard]] QTableView& List() const { return Find<QTableView>(program_->window, "list"); }
  [[nodiscard]] std::string Cell(int row, int column) const {
    return List().model()->index(row, column).data().toString().toStdString();
  }
  [[nodiscard]] std::vector<std::string> Column(int column) const {
    std::vector<std::string> cells;
    for (int row = 0; row < List().model()->rowCount(); ++row) cells.push_back(Cell(row, column));
    return cells;
  }
  void ClickTitle(int column) const {
    QHeaderView& titles = *List().horizontalHeader();
    const QPoint at(titles.sectionViewportPosition(column) + titles.sectionSize(column) / 2,
                    titles.height() / 2);
    QTest::mouseClick(titles.viewport(), Qt::LeftButton, {}, at);
  }

  std::unique_ptr<Program> program_;
};

TEST_F(CountingListTest, All_countings_are_listed_newest_first_with_their_state) {
  SqliteConnection file(database_, SqliteConnection::Mode::Existing, std::chrono::seconds(5));
  EXPECT_EQ(List().model()->rowCount(), file.Number("select count(*) from tblInventoryCounting"));
  EXPECT_EQ(Cell(0, CountingKey), std::to_string(file.Number("select max(ID) from tblInventoryCounting")));
  std::int64_t final = 0;
  for (int row = 0; row < List().model()->rowCount(); ++row) {
    EXPECT_EQ(Cell(row, State), Cell(row, FinalNumber).empty() ? "موقت" : "نهايي");
    final += Cell(row, FinalNumber).empty() ? 0 : 1;
  }
  EXPECT_EQ(final, file.Number("select count(*) from tblInventoryCounting where Code is not null"));
  EXPECT_GT(final, 0);
  EXPECT_TRUE(List().hasFocus());
}

TEST_F(CountingListTest, A_click_on_a_title_sorts_numbers_as_numbers_and_another_turns_the_order) {
  ClickTitle(CountingKey);
  std::vector<int> keys;
  for (const std::string& key : Column(CountingKey)) keys.push_back(std::stoi(key));
  EXPECT_GT(keys.size(), 10U);
  EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end())) << "9 is before 10";
  ClickTitle(CountingKey);
  EXPECT_EQ(std::stoi(Cell(0, CountingKey)), keys.back());
}

TEST_F(CountingListTest, Words_of_any_keyboard_and_the_state_choose_the_rows_and_the_count_says_so) {
  const int all = List().model()->rowCount();
  auto& filter = Find<QLineEdit>(program_->window, "filter");
  filter.setText(QStringLiteral("ش-۱۴۰۴/١٧"));
  EXPECT_EQ(Column(CountingKey), std::vector<std::string>{"17"});
  EXPECT_EQ(Find<QLabel>(program_->window, "count").text(), QStringLiteral("1 از %1 شمارش").arg(all));
  filter.clear();
  Find<QComboBox>(program_->window, "state").setCurrentIndex(1);
  for (const std::string& state : Column(State)) EXPECT_EQ(state, "موقت");
  EXPECT_EQ(List().model()->rowCount(), 10);
  Find<QComboBox>(program_->window, "state").setCurrentIndex(2);
  EXPECT_EQ(List().model()->rowCount(), all - 10);
}

TEST_F(CountingListTest, F5_reads_what_other_programs_have_stored_and_the_current_counting_stays_current) {
  List().setCurrentIndex(List().model()->index(3, CountingKey));
  const std::string before = Cell(3, CountingKey);
  SqliteConnection(database_, SqliteConnection::Mode::Existing, std::chrono::seconds(5))
      .Execute("insert into tblInventoryCounting (ID, Notes) values (5000, 'x')");
  test::Press(Qt::Key_F5);
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return Cell(0, CountingKey) == "5000"; }));  // the button is pressed a while
  EXPECT_EQ(Cell(List().currentIndex().row(), CountingKey), before);
}

TEST_F(CountingListTest, A_new_counting_is_begun_by_the_command_and_listed_once_it_is_stored) {
  program_->window.Control().SetUserID(1);
  QWidget& form = BeginNew(*program_);
  EXPECT_TRUE(form.findChild<QAbstractButton*>(QStringLiteral("cmdTmpSave"))->isEnabled());
  EXPECT_FALSE(form.findChild<QAbstractButton*>(QStringLiteral("cmdNew"))->isEnabled());
  form.findChild<QPlainTextEdit*>(QStringLiteral("txtNotes"))->setPlainText(QStringLiteral("از فهرست"));
  form.findChild<QAbstractButton*>(QStringLiteral("cmdTmpSave"))->click();
  EXPECT_NE(Cell(0, CountingNotes), "از فهرست");
  form.close();
  ASSERT_TRUE(QTest::qWaitFor([&] { return Cell(0, CountingNotes) == "از فهرست"; }));
}

TEST_F(CountingListTest, The_notes_are_never_too_narrow_to_read) {
  for (int width = 700; width < 1100; ++width) {
    program_->window.resize(width, 500);
    ASSERT_GE(List().columnWidth(CountingNotes), 130) << width;
  }
}

}  // namespace
}  // namespace koru
