#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/grid/GridView.h"
#include "tests/desktop/WindowTools.h"

namespace koru::test {
namespace {

/// Goods with a barcode (column 1), a name, two counts (3 and 4), a book stock that is not typed and a rate.
/// A count below zero is refused. The keyboard begins in the barcodes, on the second line.
class ScanningTest : public testing::Test {
 protected:
  enum : int { Barcode = 1, Name, First, Second, Stock, Rate };

  ScanningTest() {
    grid.SetCols(7);
    grid.SetFormatString("رديف|^باركد     |^نام     |^شمارش اول|^شمارش دوم|^دفتري|^نرخ   ");
    grid.SetEditMask("0001101");
    grid.ValidateEdit.Always([this] { grid.SetEditAccepted(!grid.EditText().starts_with("-")); });
    for (const auto& [barcode, name] : std::vector<std::pair<const char*, const char*>>{{"62610", "برنج"},
                                                                                        {"777", "پيچ"},
                                                                                        {"6261", "روغن"},
                                                                                        {"6262", "يخ"},
                                                                                        {"11", "كتاب"},
                                                                                        {"1112", "مهره"}}) {
      grid.AddItem(std::to_string(grid.Rows()));
      grid.SetTextMatrix(grid.Rows() - 1, Barcode, barcode);
      grid.SetTextMatrix(grid.Rows() - 1, Name, name);
    }
    // The widgets belong to their window. NOLINTBEGIN(cppcoreguidelines-owning-memory)
    view = new GridView(&window);
    other = new QPushButton(&window);
    auto* const layout = new QVBoxLayout(&window);
    // NOLINTEND(cppcoreguidelines-owning-memory)
    for (const int col : {First, Second, Rate}) {
      ColumnStyle look;
      look.number = true;
      view->SetColumnStyle(col, look);
    }
    view->SetScanColumn(Barcode);
    layout->addWidget(view);
    layout->addWidget(other);
    window.resize(700, 300);
    binding.Bind(grid, *view);
    binding.Bind(command, *other);
    Open(window);
    grid.SetCurrent(2, Barcode);
    view->setFocus();
    QApplication::processEvents();
  }
  void TearDown() override { QToolTip::hideText(); }

  void Scan(const QString& text) {
    Type(text);
    Press(Qt::Key_Return);
  }
  void Pause() { QTest::qWait(QApplication::keyboardInputInterval() + 50); }
  [[nodiscard]] std::string Cell(int row, int col) const { return std::string(grid.TextMatrix(row, col)); }
  [[nodiscard]] std::pair<int, int> Current() const {
    EXPECT_EQ(view->currentIndex(), view->model()->index(grid.Row() - 1, grid.Col()));
    return {grid.Row(), grid.Col()};
  }
  [[nodiscard]] static bool Tells(const QString& text) {
    return QToolTip::isVisible() && QToolTip::text().contains(text);
  }
  [[nodiscard]] static bool NothingIsTold() {
    return QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000);
  }
  void Click(int row, int col) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                      view->visualRect(view->model()->index(row - 1, col)).center());
    QApplication::processEvents();
  }

  NoScreen screen;
  Form form{screen, "frm"};
  Grid grid{form, "flexDetail"};
  Button command{form, "cmd"};
  QWidget window;
  GridView* view = nullptr;
  QPushButton* other = nullptr;
  FormBinding binding{form};
};

TEST_F(ScanningTest, A_scanned_good_is_found_and_Enter_goes_to_its_count) {
  Type("6262");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  EXPECT_FALSE(QToolTip::isVisible());
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(4, +First));
}

TEST_F(ScanningTest,
       A_scanned_barcode_that_no_line_has_moves_nothing_and_is_told_of_and_its_Enter_does_nothing) {
  Type("6269");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(Tells("6269")) << QToolTip::text().toStdString();
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(Tells("6269")) << "the scanner's Enter comes at once: nobody would have read it";
  Scan("6262");  // at once
  EXPECT_EQ(Current(), std::pair(4, +First));
  EXPECT_TRUE(NothingIsTold());
}

TEST_F(ScanningTest, What_was_told_of_an_unknown_barcode_goes_when_the_person_goes_on) {
  Scan("6269");
  Press(Qt::Key_Down);
  EXPECT_TRUE(NothingIsTold());
}

TEST_F(ScanningTest, A_scanned_barcode_that_goes_on_where_a_line_s_ends_is_none_of_that_line) {
  Scan("77712345");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(Tells("77712345"));
}

TEST_F(ScanningTest, An_unknown_barcode_is_no_count_either_however_late_its_Enter_comes) {
  Type("9");
  Pause();
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +First)) << "this Enter was the person's";
}

TEST_F(ScanningTest, A_scanner_that_ends_with_Tab_leaves_an_unknown_barcode_s_line_alone_too) {
  Type("9");
  Press(Qt::Key_Tab);
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_TRUE(view->hasFocus());
}

TEST_F(ScanningTest, After_a_pause_a_key_begins_a_new_search_behind_the_line) {
  Type("62");
  EXPECT_EQ(Current(), std::pair(3, +Barcode));
  Pause();
  Type("62");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Pause();
  Type("62");
  EXPECT_EQ(Current(), std::pair(1, +Barcode)) << "and from the top when the end is reached";
  Pause();
  Type("8");
  EXPECT_EQ(Current(), std::pair(1, +Barcode));
  EXPECT_TRUE(Tells("8"));
}

TEST_F(ScanningTest, Moving_away_begins_a_new_search) {
  Type("9");
  Press(Qt::Key_Down);
  Type("11");
  EXPECT_EQ(Current(), std::pair(5, +Barcode));
}

TEST_F(ScanningTest, A_whole_barcode_wins_over_one_that_begins_with_it) {
  Type("6261");
  EXPECT_EQ(Current(), std::pair(3, +Barcode));
  Type("0");
  EXPECT_EQ(Current(), std::pair(1, +Barcode));
  Pause();
  Type("11");
  EXPECT_EQ(Current(), std::pair(5, +Barcode)) << "two equal digits are a barcode like any other";
  Pause();
  Type("11");
  EXPECT_EQ(Current(), std::pair(5, +Barcode));
}

TEST_F(ScanningTest, Digits_and_letters_of_any_keyboard_find_what_is_written_with_another) {
  Type(QStringLiteral("۶۲۶۲"));
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Pause();
  Type(QStringLiteral("٧٧٧"));
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  grid.SetCurrent(2, Name);
  Type(QStringLiteral("کت"));
  EXPECT_EQ(Current(), std::pair(5, +Name));
}

TEST_F(ScanningTest, Other_columns_are_searched_as_well_and_their_Enter_begins_no_round) {
  grid.SetCurrent(2, Name);
  Scan(QStringLiteral("روغن"));
  EXPECT_EQ(Current(), std::pair(3, +First));
  Scan("5");
  EXPECT_EQ(Current(), std::pair(3, +Second));
  grid.SetCurrent(2, Name);
  Scan(QStringLiteral("روز"));
  EXPECT_EQ(Current(), std::pair(2, +Name));
  EXPECT_TRUE(Tells(QStringLiteral("روز")));
}

TEST_F(ScanningTest, Escape_and_blanks_search_for_nothing) {
  Press(Qt::Key_Escape);
  Type(" ");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(ScanningTest, In_a_list_an_unknown_text_opens_nothing) {
  int opened = 0;
  grid.DblClick.Always([&] { opened = grid.Row(); });
  grid.SetEditMask("0000000");
  Scan("6269");
  EXPECT_EQ(opened, 0);
  Scan("6262");
  EXPECT_EQ(opened, 4);
}

TEST_F(ScanningTest, Scans_and_counts_follow_each_other_without_any_other_key) {
  Scan("6262");
  Scan("12");
  EXPECT_EQ(Cell(4, First), "12");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Scan("777");
  Scan("5");
  EXPECT_EQ(Cell(2, First), "5");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  Scan("777");  // the same good again
  EXPECT_EQ(Current(), std::pair(2, +First));
  Press(Qt::Key_Return);
  EXPECT_EQ(Current(), std::pair(2, +Barcode)) << "its count stays, the next scan may come";
}

TEST_F(ScanningTest, A_slow_hand_counts_in_the_same_round) {
  Type("6262");
  Pause();
  Press(Qt::Key_Return);
  Type("1");
  Pause();
  Scan("2");
  EXPECT_EQ(Cell(4, First), "12");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
}

TEST_F(ScanningTest, Who_goes_to_the_second_count_once_gets_there_with_the_next_scans) {
  Scan("6262");
  Press(Qt::Key_Left);
  Scan("8");
  EXPECT_EQ(Cell(4, Second), "8");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
  Scan("777");
  EXPECT_EQ(Current(), std::pair(2, +Second));
  Type("9");
  Press(Qt::Key_Right);  // stores it and goes back to the first count
  EXPECT_EQ(Cell(2, Second), "9");
  Scan("7");
  EXPECT_EQ(Cell(2, First), "7");
  EXPECT_EQ(Current(), std::pair(2, +Barcode));
  Scan("6262");
  EXPECT_EQ(Current(), std::pair(4, +First));
}

TEST_F(ScanningTest, A_look_at_the_second_count_without_a_figure_does_not_send_scans_there) {
  Scan("6262");
  Press(Qt::Key_Left);
  Press(Qt::Key_Return);
  Scan("777");
  EXPECT_EQ(Current(), std::pair(2, +First));
}

TEST_F(ScanningTest, A_refused_count_stays_and_the_right_one_still_ends_at_the_barcode) {
  Scan("6262");
  Scan("-1");
  ASSERT_TRUE(view->IsTypedInto());
  Scan("3");
  EXPECT_EQ(Cell(4, First), "3");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
}

TEST_F(ScanningTest, Any_other_way_out_of_the_scanned_line_gives_Enter_back) {
  const std::vector<std::pair<const char*, std::function<void()>>> ways{
      {"down and up",
       [] {
         Press(Qt::Key_Down);
         Press(Qt::Key_Up);
       }},
      {"to a cell that is not typed into",
       [] {
         Press(Qt::Key_Right);
         Press(Qt::Key_Left);
       }},
      {"Tab",
       [] {
         Press(Qt::Key_Tab);
         Press(Qt::Key_Backtab);
       }},
      {"mouse", [this] { Click(4, First); }},
      {"another field",
       [this] {
         QTest::mouseClick(other, Qt::LeftButton);
         view->setFocus();
       }},
      {"a sort",
       [this] {
         grid.Sort(Name, SortMode::GenericAscending);
         grid.SetCurrent(4, First);
       }},
  };
  for (const auto& [name, leave] : ways) {
    grid.SetCurrent(2, Barcode);
    Scan("6262");
    ASSERT_EQ(Current().second, +First) << name;
    grid.Sort(0, SortMode::GenericAscending);
    grid.SetCurrent(2, Barcode);
    Scan("6262");
    ASSERT_EQ(Current(), std::pair(4, +First)) << name;
    leave();
    ASSERT_EQ(Current(), std::pair(4, +First)) << name;
    Press(Qt::Key_Return);
    EXPECT_EQ(Current(), std::pair(4, +Second)) << name;
  }
}

TEST_F(ScanningTest, Enter_on_a_barcode_that_was_not_scanned_begins_no_round) {
  Press(Qt::Key_Return);
  Scan("4");
  EXPECT_EQ(Cell(2, First), "4");
  EXPECT_EQ(Current(), std::pair(2, +Second));
}

TEST_F(ScanningTest, A_sort_after_a_scan_takes_the_scan_back) {
  Type("6262");
  grid.Sort(Barcode, SortMode::TextNoCaseAscending);
  ASSERT_NE(Cell(4, Barcode), "6262");
  Press(Qt::Key_Return);
  Scan("4");
  EXPECT_EQ(Current(), std::pair(4, +Second)) << "the line holds another good now, so this is no round";
}

TEST_F(ScanningTest, What_is_only_viewed_is_found_and_Enter_stays) {
  grid.SetLocked(true);
  Scan("6262");
  EXPECT_EQ(Current(), std::pair(4, +Barcode));
}

TEST_F(ScanningTest, An_empty_line_that_goes_while_scanning_takes_nothing_of_the_barcode) {
  grid.SetTextMatrix(2, Barcode, "");
  grid.RowChange.Always([this] {
    if (Cell(grid.Row(), Barcode).empty()) grid.RemoveItem(grid.Row());
  });
  Scan("6262");
  EXPECT_EQ(grid.Rows(), 6);
  EXPECT_EQ(Cell(Current().first, Barcode), "6262");
  EXPECT_EQ(Current(), std::pair(3, +First));
}

}  // namespace
}  // namespace koru::test
