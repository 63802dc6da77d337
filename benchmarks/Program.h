#pragma once

#include <cstdint>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/SystemServices.h"
#include "adapters/system/WriterThread.h"
#include "adapters/xlsx/XlsxStarter.h"
#include "component/comInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "desktop/forms/InvCountingWindow.h"
#include "desktop/grid/GridView.h"
#include "tests/support/FakeMessages.h"

namespace koru::bench {

/// The desktop program with its real windows over a large sample: user 1 has opened a counting. Messages are
/// recorded, not shown.
class Program : private ControlHost {
 public:
  /// Opens `counting` from the database `file`; workbooks are written to the folder `workbooks`, and drafts
  /// where there is a store for them.
  Program(const std::string& file, std::int32_t counting, const std::string& workbooks,
          DraftStore* drafts = nullptr);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() override = default;

  [[nodiscard]] frmInvCounting& Form() const { return *control_.CountingForm(); }
  [[nodiscard]] InvCountingWindow& Window() const;
  [[nodiscard]] GridView& Lines() const;
  [[nodiscard]] comInvCounting& Control() { return control_; }

  /// Opens the counting again, since a program by hand may have written it, and presses Edit unless it is
  /// final.
  void Edit();
  /// Presses a button as the user does. Throws if it is disabled or if the program showed a message.
  void Press(Button& button);
  /// The form that was opened last.
  [[nodiscard]] koru::Form& Shown() const { return *screen_.shown; }
  /// Processes pending repaints.
  static void Draw();

 private:
  /// Shows dialogs without waiting for the user.
  class OpenScreen : public DesktopScreen {
   public:
    void Show(koru::Form& form, bool /*modal*/) override {
      shown = &form;
      DesktopScreen::Show(form, false);
    }
    koru::Form* shown = nullptr;
  };
  [[nodiscard]] HostServices Services(DraftStore* drafts);
  /// Replaces a spreadsheet program.
  static bool Opened(const std::string& /*path*/) { return true; }

  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view /*key*/) override {}

  std::int32_t counting_;
  SqliteConnector databases_;
  ComponentRegistry components_;
  test::FakeMessages messages_;
  SystemClock clock_;
  SystemFileSystem files_;
  XlsxStarter spreadsheets_;
  SelectorRecords records_{databases_};
  OpenScreen screen_;
  WriterThread draftWriter_;
  comInvCounting control_;
};

}  // namespace koru::bench
