#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QWidget>
#include <filesystem>
#include <memory>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/TemporaryFolder.h"
#include "database/Sample.h"
#include "desktop/toolkit/QtText.h"
#include "host/HostWindow.h"
#include "tests/desktop/WindowTools.h"

namespace koru::test {

/// The host window over a sample database of its own, with settings of its own.
class HostWindowTest : public testing::Test {
 protected:
  void SetUp() override { CreateSample(database_, {}); }

  /// A session over the sample, as after a first start.
  struct Program {
    explicit Program(const std::filesystem::path& settings)
        : folder(settings.parent_path()), session(settings) {}
    std::filesystem::path folder;
    HostSession session;
    HostWindow window{session, folder / "sample.db"};
  };
  [[nodiscard]] std::unique_ptr<Program> Start(bool first = true) const {
    auto program = std::make_unique<Program>(settings_);
    if (first) program->window.Control().SetOLEConnectionString(ToQt(EmbeddedConnectionText(database_)));
    return program;
  }
  template <class Widget>
  static Widget& Find(QWidget& window, const char* name) {
    return *window.findChild<Widget*>(QString::fromLatin1(name));
  }

  /// The counting form on the screen; nullptr when there is none.
  static QWidget* InvCountingWindow() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1String("frmInvCounting") && window->isVisible()) return window;
    }
    return nullptr;
  }
  /// Presses the host's command and returns the form on which a new counting has begun.
  static QWidget& BeginNew(Program& program) {
    Find<QAbstractButton>(program.window, "new").click();
    EXPECT_TRUE(QTest::qWaitFor([] {
      const QWidget* const form = InvCountingWindow();
      return form != nullptr && form->findChild<QAbstractButton*>(QStringLiteral("cmdCancel"))->isEnabled();
    }));
    return *InvCountingWindow();
  }
  /// The text of a message, which is acknowledged.
  static std::string Acknowledge(const QWidget& dialog) {
    std::string text = dialog.findChild<QLabel*>(QStringLiteral("message"))->text().toStdString();
    if (const auto* detail = dialog.findChild<QPlainTextEdit*>(QStringLiteral("detail"))) {
      text += detail->toPlainText().toStdString();
    }
    dialog.findChild<QAbstractButton*>(QStringLiteral("ok"))->click();
    return text;
  }

  TemporaryFolder folder_;
  std::string database_ = (folder_.Path() / "a.db").string();
  std::filesystem::path settings_ = folder_.Path() / "config" / "koru-counting.ini";
};

}  // namespace koru::test
