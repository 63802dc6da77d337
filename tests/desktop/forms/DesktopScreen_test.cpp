#include "desktop/forms/DesktopScreen.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPointer>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>
#include <functional>

#include "tests/desktop/WindowTools.h"

namespace koru {
namespace {

class DesktopScreenTest : public testing::Test {
 protected:
  DesktopScreenTest() {
    screen.Register("frmSmall", [this](Form& form) {
      ++made;
      auto window = std::make_unique<FormWindow>(form);
      window->resize(200, 100);
      return window;
    });
  }

  DesktopScreen screen;
  int made = 0;
};

TEST_F(DesktopScreenTest, A_form_is_shown_hidden_and_shown_again_in_the_same_window) {
  Form form(screen, "frmSmall");
  form.SetCaption("شمارش");
  EXPECT_EQ(screen.WindowOf(form), nullptr);
  form.Show(false);
  ASSERT_NE(screen.WindowOf(form), nullptr);
  EXPECT_TRUE(screen.WindowOf(form)->isVisible());
  EXPECT_EQ(screen.WindowOf(form)->windowTitle(), QStringLiteral("شمارش"));
  form.Hide();
  EXPECT_FALSE(screen.WindowOf(form)->isVisible());
  form.Show(false);
  EXPECT_TRUE(screen.WindowOf(form)->isVisible());
  EXPECT_EQ(made, 1);
}

TEST_F(DesktopScreenTest, A_minimised_window_comes_back_to_the_front) {
  Form form(screen, "frmSmall");
  form.Show(false);
  screen.WindowOf(form)->showMinimized();
  form.Show(false);
  EXPECT_FALSE(screen.WindowOf(form)->isMinimized());
  EXPECT_TRUE(screen.WindowOf(form)->isActiveWindow());
}

TEST_F(DesktopScreenTest, A_modal_form_returns_when_it_is_hidden) {
  Form form(screen, "frmSmall");
  bool wasModal = false;
  QTimer::singleShot(0, [&] {
    // The first turn of events belongs to showing the window; the user acts after it.
    QTimer::singleShot(0, [&] {
      wasModal = QApplication::activeModalWidget() == screen.WindowOf(form);
      form.Hide();
    });
  });
  form.Show(true);
  EXPECT_TRUE(wasModal);
  EXPECT_FALSE(form.Visible());
}

TEST_F(DesktopScreenTest, A_modal_form_is_a_dialog_over_the_middle_of_the_window_below_it) {
  QWidget below;
  below.setGeometry(700, 400, 600, 500);
  test::Open(below);
  Form form(screen, "frmSmall");
  const auto show = [&](const std::function<void(const FormWindow&)>& look) {
    QTimer::singleShot(0, [&] {
      QTimer::singleShot(0, [&] {
        look(*screen.WindowOf(form));
        form.Hide();
      });
    });
    form.Show(true);
  };
  show([&](const FormWindow& window) {
    EXPECT_EQ(window.windowType(), Qt::Dialog);
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_EQ(window.windowHandle()->transientParent(), below.windowHandle());
    const QPoint off = window.frameGeometry().center() - below.frameGeometry().center();
    EXPECT_LT(off.manhattanLength(), 40) << off.x() << "," << off.y();
  });
  below.activateWindow();
  below.move(1600, 900);
  QApplication::processEvents();
  show([](const FormWindow& window) {
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.frameGeometry()));
  });
  form.Show(false);
  EXPECT_EQ(screen.WindowOf(form)->windowType(), Qt::Window);
  EXPECT_FALSE(screen.WindowOf(form)->isModal());
}

TEST_F(DesktopScreenTest, Closing_the_window_asks_the_form) {
  struct Stubborn : Form {
    using Form::Form;
    void UserClose() override { ++asked; }
    int asked = 0;
  };
  Stubborn form(screen, "frmSmall");
  form.Show(false);
  screen.WindowOf(form)->close();
  EXPECT_EQ(form.asked, 1);
  EXPECT_TRUE(screen.WindowOf(form)->isVisible());
}

TEST_F(DesktopScreenTest, An_unloaded_form_s_window_is_destroyed_after_the_event_that_unloaded_it) {
  QPointer<FormWindow> window;
  {
    Form form(screen, "frmSmall");
    form.Show(false);
    window = screen.WindowOf(form);
    form.Unload();
    EXPECT_EQ(screen.WindowOf(form), nullptr);
  }
  ASSERT_FALSE(window.isNull());
  EXPECT_FALSE(window->isVisible());
  window->close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window.isNull());
}

TEST_F(DesktopScreenTest, The_hourglass_is_shown_while_an_operation_asks_for_it) {
  {
    const Hourglass hourglass(screen);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    { const Hourglass inner(screen); }
    EXPECT_EQ(screen.CurrentCursor(), Cursor::Hourglass);
  }
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopScreenTest, A_form_without_a_window_is_a_mistake_of_the_program) {
  Form form(screen, "frmUnknown");
  EXPECT_THROW(form.Show(false), std::logic_error);
}

}  // namespace
}  // namespace koru
