#include <gtest/gtest.h>

#include "tests/component/ControlFixture.h"

namespace koru {
namespace {

class ResizeTest : public testing::Test {
 protected:
  ResizeTest() {
    flexTempDocs.SetCols(9);
    for (int col = 0; col < 9; ++col) flexTempDocs.SetColWidth(col, col == 7 ? 1234 : 1000);
  }
  test::FakeScreen screen;
  Form form{screen, "control"};
  Grid flexTempDocs{form, "flexTempDocs"};
};

TEST_F(ResizeTest, Column_7_takes_the_width_that_the_others_leave) {
  comInvCounting::Resize(12000, 5000, flexTempDocs);
  EXPECT_EQ(flexTempDocs.ColWidth(7), 12000 - 8000 - 250);
}

TEST_F(ResizeTest, Column_7_is_2800_twips_when_the_others_fill_the_grid) {
  comInvCounting::Resize(8200, 5000, flexTempDocs);
  EXPECT_EQ(flexTempDocs.ColWidth(7), 2800);
}

TEST_F(ResizeTest, Column_7_does_not_vanish_where_the_others_leave_next_to_nothing) {
  comInvCounting::Resize(8300, 5000, flexTempDocs);
  EXPECT_EQ(flexTempDocs.ColWidth(7), 50);
  for (int width = 8201; width <= 8250; ++width) {
    comInvCounting::Resize(width, 5000, flexTempDocs);
    EXPECT_EQ(flexTempDocs.ColWidth(7), 2800) << width;
  }
}

TEST_F(ResizeTest, A_small_control_is_left_as_it_is) {
  comInvCounting::Resize(4000, 5000, flexTempDocs);
  comInvCounting::Resize(12000, 2000, flexTempDocs);
  EXPECT_EQ(flexTempDocs.ColWidth(7), 1234);
}

}  // namespace
}  // namespace koru
