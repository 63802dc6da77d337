#pragma once

#include <cstdint>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/system/SystemServices.h"
#include "adapters/xlsx/XlsxStarter.h"
#include "component/comInvCounting.h"
#include "desktop/fields/SelectorRecords.h"
#include "desktop/forms/DesktopScreen.h"
#include "desktop/grid/GridView.h"
#include "tests/support/FakeMessages.h"

namespace koru::bench {

/// The desktop program as people use it, with its real windows, over a large sample: user 1 has opened a
/// counting. Nobody is there to read a message.
class Program : private ControlHost {
 public:
  /// `counting` is opened from the database at `file`; workbooks go to the folder `workbooks`.
  Program(const std::string& file, std::int32_t counting, const std::string& workbooks);
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() override = default;

  [[nodiscard]] frmInvCounting& Form() const { return *control_.CountingForm(); }
  [[nodiscard]] GridView& Lines() const;

  /// The counting on the form is being edited, as stored or with what was changed since.
  void Edit();
  /// Presses a button, as a person does. Throws when it is not available, or when the program had something
  /// to tell the person.
  void Press(Button& button);
  /// Lets the windows draw what has changed.
  static void Draw();

 private:
  /// Dialogs come up without waiting for a person.
  class OpenScreen : public DesktopScreen {
   public:
    void Show(koru::Form& form, bool /*modal*/) override { DesktopScreen::Show(form, false); }
  };
  /// There is no program that opens workbooks.
  static bool Opened(const std::string& /*path*/) { return true; }

  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view /*key*/) override {}

  SqliteConnector databases_;
  ComponentRegistry components_;
  test::FakeMessages messages_;
  SystemClock clock_;
  SystemFileSystem files_;
  XlsxStarter spreadsheets_;
  SelectorRecords records_{databases_};
  OpenScreen screen_;
  comInvCounting control_{*this, {databases_, components_, screen_, clock_, files_, spreadsheets_}};
};

}  // namespace koru::bench
