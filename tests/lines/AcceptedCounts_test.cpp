#include "lines/AcceptedCounts.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "lines/EntryHistory.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

constexpr const char* kOnceQuestion =
    "قبول شمارش‌هاي يكسان: 1 سطر فقط يك بار شمرده شده است. "
    "آن يك شمارش براي آن ها قبول شود؟";
constexpr const char* kOtherQuestion =
    "قبول شمارش‌هاي يكسان: 1 سطر شمارش مورد قبول ديگري دارد. "
    "شمارش يكسان به جاي آن نوشته شود؟";

class AcceptedCountsTest : public LinesTest {
 protected:
  /// Appends a line with these counts, whose book stock is 10 and rate 100; returns its row.
  int Line(const std::array<const char*, 3>& counts, const char* accepted = "") {
    const int row = form.AddLine("4001");
    for (int i = 0; i < 3; ++i)
      form.Set(row, LineColumn::FirstCounting + i, counts[static_cast<std::size_t>(i)]);
    form.Set(row, LineColumn::AcceptedCounting, accepted);
    form.Set(row, LineColumn::SystemCounting, "10");
    form.Set(row, LineColumn::Rate, "100");
    return row;
  }
  std::string Accepted(int row) { return form.Cell(row, LineColumn::AcceptedCounting); }

  EntryHistory history{form};
  AcceptedCounts accept{form, shared.messages};
};

TEST_F(AcceptedCountsTest, Two_or_three_equal_counts_are_accepted) {
  const int two = Line({"12", "", "12"});
  const int three = Line({"7", "7", "7"});
  const int nothingFound = Line({"0", "0", ""});
  EXPECT_EQ(accept.Run().filled, 3);
  EXPECT_EQ(Accepted(two), "12");
  EXPECT_EQ(Accepted(three), "7");
  EXPECT_EQ(Accepted(nothingFound), "0");
  EXPECT_EQ(NewTitledMessages(), Texts{});
}

TEST_F(AcceptedCountsTest, The_number_decides_and_not_the_way_it_is_written) {
  const int row = Line({"12", "12.0", " 12.000"});
  accept.Run();
  EXPECT_EQ(Accepted(row), "12");
}

TEST_F(AcceptedCountsTest, Counts_that_differ_are_left) {
  const int two = Line({"12", "13", ""});
  const int third = Line({"12", "12", "12.001"});
  const auto result = accept.Run();
  EXPECT_EQ(result.filled, 0);
  EXPECT_EQ(result.disagree, 2);
  EXPECT_EQ(Accepted(two) + Accepted(third), "");
}

TEST_F(AcceptedCountsTest, A_line_without_a_count_is_left) {
  const int row = Line({"", " ", ""});
  EXPECT_EQ(accept.Run().uncounted, 1);
  EXPECT_EQ(Accepted(row), "");
}

TEST_F(AcceptedCountsTest, A_line_that_was_counted_once_is_accepted_only_when_the_user_says_so) {
  const int row = Line({"", "5", ""});
  messages.WillAnswer(Answers::No);
  auto result = accept.Run();
  EXPECT_EQ(NewTitledMessages(), Texts{kOnceQuestion});
  EXPECT_EQ(result.countedOnce, 1);
  EXPECT_EQ(Accepted(row), "");
  messages.WillAnswer(Answers::Yes);
  result = accept.Run();
  EXPECT_EQ(result.filled, 1);
  EXPECT_EQ(result.Left(), 0);
  EXPECT_EQ(Accepted(row), "5");
}

TEST_F(AcceptedCountsTest, Another_accepted_count_is_replaced_only_when_the_user_says_so) {
  const int row = Line({"5", "5", ""}, "6");
  messages.WillAnswer(Answers::No);
  auto result = accept.Run();
  EXPECT_EQ(NewTitledMessages(), Texts{kOtherQuestion});
  EXPECT_EQ(result.otherFigure, 1);
  EXPECT_EQ(Accepted(row), "6");
  messages.WillAnswer(Answers::Yes);
  result = accept.Run();
  EXPECT_EQ(result.filled, 1);
  EXPECT_EQ(Accepted(row), "5");
}

TEST_F(AcceptedCountsTest, A_single_count_replaces_an_accepted_one_only_after_both_questions) {
  const int row = Line({"5", "", ""}, "6");
  messages.WillAnswer(Answers::Yes);
  messages.WillAnswer(Answers::No);
  const auto result = accept.Run();
  EXPECT_EQ(NewTitledMessages(), (Texts{kOnceQuestion, kOtherQuestion}));
  EXPECT_EQ(result.otherFigure, 1);
  EXPECT_EQ(result.Left(), 1);
  EXPECT_EQ(Accepted(row), "6");
}

TEST_F(AcceptedCountsTest, The_accepted_count_that_agrees_already_stays_as_it_is_written) {
  const int row = Line({"5", "5", ""}, "5.00");
  const auto result = accept.Run();
  EXPECT_EQ(result.alreadySame, 1);
  EXPECT_EQ(result.filled, 0);
  EXPECT_EQ(result.Left(), 0);
  EXPECT_EQ(Accepted(row), "5.00");
}

TEST_F(AcceptedCountsTest, Differences_and_sums_follow) {
  const int row = Line({"12", "12", ""});
  Line({"9", "9", ""});
  accept.Run();
  EXPECT_EQ(form.Cell(row, LineColumn::Surplus), "2");
  EXPECT_EQ(form.txtTotalAboveValue.Text(), "200");
  EXPECT_EQ(form.txtTotalBelowValue.Text(), "100");
}

TEST_F(AcceptedCountsTest, One_undo_takes_all_of_them_back) {
  Line({"12", "12", ""});
  Line({"9", "9", ""});
  accept.Run();
  EXPECT_EQ(history.Undo().figures, 2);
  EXPECT_EQ(Accepted(1) + Accepted(2), "");
  EXPECT_EQ(form.txtTotalAboveValue.Text(), "0");
  EXPECT_FALSE(history.CanUndo());
}

TEST_F(AcceptedCountsTest, The_current_cell_stays) {
  Line({"12", "12", ""});
  Line({"9", "9", ""});
  Line({"9", "9", ""});
  form.flexDetail.UserMoveTo(2, LineColumn::SecondCounting);
  accept.Run();
  EXPECT_EQ(form.flexDetail.Row(), 2);
  EXPECT_EQ(form.flexDetail.Col(), LineColumn::SecondCounting);
}

TEST_F(AcceptedCountsTest, A_count_that_the_form_refuses_is_left_and_the_others_are_filled) {
  const int wrong = Line({"-3", "-3", ""});  // as another program may have stored it
  const int right = Line({"9", "9", ""});
  const auto result = accept.Run();
  EXPECT_EQ(result.refused, 1);
  EXPECT_EQ(result.filled, 1);
  EXPECT_EQ(Accepted(wrong), "");
  EXPECT_EQ(Accepted(right), "9");
}

TEST_F(AcceptedCountsTest, An_empty_row_that_the_user_is_in_is_removed_and_shifts_no_figure) {
  const int empty = Line({"1", "1", ""});
  Line({"12", "12", ""});
  Line({"9", "9", ""});
  form.Set(empty, LineColumn::Barcode, "");
  form.flexDetail.SetCurrent(empty, LineColumn::FirstCounting);
  EXPECT_EQ(accept.Run().filled, 2);
  EXPECT_EQ(Accepted(1), "12");
  EXPECT_EQ(Accepted(2), "9");
}

TEST_F(AcceptedCountsTest, A_window_hears_of_the_figures_once) {
  for (int i = 0; i < 100; ++i) Line({"12", "12", ""});
  int reports = 0;
  const Subscription rows = form.flexDetail.RowsChanged.Subscribe([&](const GridChange&) { ++reports; });
  const Subscription current = form.flexDetail.CurrentChanged.Subscribe([&] { ++reports; });
  const Subscription sums = form.txtTotalValue.StateChanged.Subscribe([&] { ++reports; });
  EXPECT_EQ(accept.Run().filled, 100);
  EXPECT_LE(reports, 3);
}

}  // namespace
}  // namespace koru
