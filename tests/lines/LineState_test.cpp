#include "lines/LineState.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>

#include "lines/LineTally.h"
#include "tests/lines/LinesTest.h"

namespace koru {
namespace {

constexpr std::array<int, 4> kFigures = {LineColumn::FirstCounting, LineColumn::SecondCounting,
                                         LineColumn::ThirdCounting, LineColumn::AcceptedCounting};

class LineStateTest : public LinesTest {
 protected:
  /// A line with these counts, a book stock of 10 and an accepted count; its row.
  int Line(const std::array<const char*, 3>& counts, std::string_view accepted = {}) {
    const int row = form.AddLine("4001");
    for (std::size_t i = 0; i < counts.size(); ++i) form.Set(row, kFigures.at(i), counts.at(i));
    form.Set(row, LineColumn::AcceptedCounting, accepted);
    form.Set(row, LineColumn::SystemCounting, "10");
    form.editing.CalculateRow(row);
    return row;
  }
  LineState State(const std::array<const char*, 3>& counts, std::string_view accepted = {}) {
    return LineState::Of(form.flexDetail, Line(counts, accepted));
  }
};

TEST_F(LineStateTest, A_line_without_a_count_is_not_counted) {
  for (const auto& blank : {"", " "}) {
    const LineState state = State({blank, "", ""});
    EXPECT_FALSE(state.IsCounted());
    EXPECT_TRUE(state.Is(LineKind::NotCounted));
    EXPECT_TRUE(state.Is(LineKind::NotAccepted));
    EXPECT_FALSE(state.Is(LineKind::Short)) << "its whole stock is missing only as long as nobody counted";
  }
}

TEST_F(LineStateTest, One_count_of_zero_is_a_count) {
  for (const LineState& state : {State({"0", "", ""}), State({"", "", "0"}), State({"", "", ""}, "0")}) {
    EXPECT_TRUE(state.IsCounted());
    EXPECT_FALSE(state.Is(LineKind::NotCounted));
    EXPECT_FALSE(state.CountsAgree());
    EXPECT_FALSE(state.CountsDisagree());
  }
}

TEST_F(LineStateTest, Two_or_three_equal_counts_agree) {
  EXPECT_TRUE(State({"5", "5", ""}).CountsAgree());
  EXPECT_TRUE(State({"5", "", "5"}).CountsAgree());
  EXPECT_TRUE(State({"", "5", "5.0"}).CountsAgree());
  EXPECT_TRUE(State({"0", "0", "0"}).CountsAgree());
  EXPECT_FALSE(State({"5", "5", "5"}).CountsDisagree());
}

TEST_F(LineStateTest, Two_or_three_counts_that_are_not_all_equal_disagree) {
  for (const LineState& state : {State({"5", "6", ""}), State({"5", "", "0"}), State({"5", "5", "6"}),
                                 State({"6", "5", "5"}), State({"5", "6", "5"}, "5")}) {
    EXPECT_TRUE(state.Is(LineKind::CountsDisagree));
    EXPECT_FALSE(state.CountsAgree());
  }
}

TEST_F(LineStateTest, An_accepted_line_is_short_over_or_exactly_right) {
  EXPECT_TRUE(State({"9", "", ""}, "9").Is(LineKind::Short));
  EXPECT_TRUE(State({"9", "", ""}, "11").Is(LineKind::Over));
  EXPECT_TRUE(State({"9", "", ""}, "10").Is(LineKind::Exact));
  EXPECT_TRUE(State({"", "", ""}, "0").Is(LineKind::Short));
}

TEST_F(LineStateTest, Every_line_is_of_exactly_one_of_the_last_four_kinds) {
  for (const char* const count : {"", "0", "7"}) {
    for (const char* const accepted : {"", "0", "9", "10", "10.5"}) {
      const LineState state = State({count, "", count}, accepted);
      int kinds = 0;
      for (const LineKind kind : {LineKind::NotAccepted, LineKind::Short, LineKind::Over, LineKind::Exact})
        kinds += state.Is(kind) ? 1 : 0;
      EXPECT_EQ(kinds, 1) << count << "/" << accepted;
      EXPECT_TRUE(state.Is(LineKind::All));
    }
  }
}

class LineTallyTest : public LineStateTest {
 protected:
  LineTally tally{form.flexDetail};
};

TEST_F(LineTallyTest, The_lines_of_each_kind_are_counted) {
  Line({"", "", ""});
  Line({"5", "", ""});
  Line({"5", "5", ""});
  Line({"5", "6", ""}, "5");
  Line({"10", "10", "10"}, "10");
  Line({"", "", ""}, "12");
  const LineCounts& counts = tally.Counts();
  EXPECT_EQ(counts.ofKind, (std::array<int, kLineKinds>{6, 1, 1, 3, 1, 1, 1}));
  EXPECT_EQ(counts.Lines(), 6);
  EXPECT_EQ(counts.counted, 5);
  EXPECT_EQ(counts.agreed, 2);
  EXPECT_EQ(counts.Accepted(), 3);
  EXPECT_EQ(counts.Left(), 3);
}

TEST_F(LineTallyTest, A_counting_without_lines_has_none_of_any_kind) {
  EXPECT_EQ(tally.Counts(), LineCounts{});
  EXPECT_EQ(tally.Counts().Accepted(), 0);
}

TEST_F(LineTallyTest, The_numbers_follow_every_figure_sort_and_line) {
  std::mt19937 random(16);
  const auto pick = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  for (int i = 0; i < 8; ++i) Line({"", "", ""});
  constexpr int kSteps = 2000;
  for (int step = 0; step < kSteps; ++step) {
    Grid& lines = form.flexDetail;
    const int row = 1 + pick(lines.Rows() - 1);
    switch (pick(12)) {
      case 0:
        lines.UserClickHeader(kFigures.at(static_cast<std::size_t>(pick(4))));
        break;
      case 1:
        Line({"3", "4", ""}, "1");
        break;
      case 2:
        if (lines.Rows() > 4) lines.RemoveItem(row);
        break;
      default: {
        const std::string figure = pick(3) == 0 ? "" : std::to_string(9 + pick(3));
        lines.UserEdit(row, kFigures.at(static_cast<std::size_t>(pick(4))), figure);
      }
    }
    LineTally fresh(lines);
    ASSERT_EQ(tally.Counts(), fresh.Counts()) << "after step " << step;
    const int last = lines.Rows() - 1;
    ASSERT_EQ(tally.StateOf(last).CountsDisagree(), LineState::Of(lines, last).CountsDisagree());
  }
}

}  // namespace
}  // namespace koru
