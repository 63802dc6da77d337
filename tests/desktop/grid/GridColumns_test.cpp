#include "desktop/grid/GridColumns.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QFontMetrics>
#include <numeric>

namespace koru {
namespace {

TEST(GridColumns, A_wide_window_gives_the_rest_to_the_column_of_names) {
  EXPECT_EQ(FitColumns({{30, 40}, {50, 100}, {30, 60}}, 300, 1), (std::vector<int>{40, 200, 60}));
}

TEST(GridColumns, A_narrow_window_cuts_no_text_off_and_cares_for_the_names_first) {
  EXPECT_EQ(FitColumns({{30, 50}, {50, 90}, {30, 70}}, 180, 1), (std::vector<int>{40, 90, 50}));
}

TEST(GridColumns, A_window_that_is_too_narrow_lets_the_grid_scroll) {
  EXPECT_EQ(FitColumns({{30, 50}, {50, 90}}, 60, 1), (std::vector<int>{30, 50}));
}

TEST(GridColumns, A_column_without_width_stays_hidden) {
  EXPECT_EQ(FitColumns({{30, 40}, {0, 0}}, 100, 1), (std::vector<int>{40, 0}));
}

TEST(GridColumns, A_title_of_several_words_is_as_wide_as_the_wider_of_its_two_lines) {
  const QFontMetrics metrics{QFont()};
  const QString title = QStringLiteral("شمارش مورد قبول");
  EXPECT_LT(TwoLineWidth(title, metrics), metrics.horizontalAdvance(title));
  EXPECT_GE(TwoLineWidth(title, metrics), metrics.horizontalAdvance(QStringLiteral("شمارش")));
  EXPECT_EQ(TwoLineWidth(QString(), metrics), 0);
}

}  // namespace
}  // namespace koru
