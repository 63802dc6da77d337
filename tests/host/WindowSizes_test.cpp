#include <gtest/gtest.h>

#include "tests/host/HostFixture.h"

namespace koru {
namespace {

using WindowSizesTest = test::HostWindowTest;

TEST_F(WindowSizesTest, The_host_and_the_counting_form_come_back_as_large_as_they_were_closed) {
  {
    const auto program = Start();
    test::Open(program->window);
    program->window.Start();
    program->window.resize(1111, 555);
    ASSERT_TRUE(program->window.Control().View(17));
    InvCountingWindow()->resize(1222, 666);
    EXPECT_TRUE(program->window.close());
  }
  const auto program = Start(false);
  test::Open(program->window);
  program->window.Start();
  EXPECT_EQ(program->window.size(), QSize(1111, 555));
  ASSERT_TRUE(program->window.Control().View(17));
  EXPECT_EQ(InvCountingWindow()->size(), QSize(1222, 666));
}

TEST_F(WindowSizesTest, A_size_beyond_the_screen_is_cut_to_it_and_a_maximized_window_comes_back_so) {
  {
    const auto program = Start();
    program->session.Settings().KeepSize("host", {9000, 9000, false});
    test::Open(program->window);
    EXPECT_LE(program->window.width(), program->window.screen()->availableSize().width());
    EXPECT_LE(program->window.height(), program->window.screen()->availableSize().height());
    program->window.resize(900, 500);
    program->window.showMaximized();
    program->window.close();
  }
  const auto program = Start(false);
  EXPECT_EQ(program->session.Settings().SizeOf("host"), (WindowSize{900, 500, true}));
  test::Open(program->window);
  EXPECT_TRUE(program->window.isMaximized());
}

}  // namespace
}  // namespace koru
