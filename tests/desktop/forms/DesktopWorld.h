#pragma once

#include "platform/ports/HostServices.h"
#include "platform/text/Errors.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FixedClock.h"
#include "tests/support/TestDatabase.h"

namespace koru::test {

/// What the component stands on in tests of its windows: a real database, a person who is asked by
/// FakeMessages, the screen that the test brings, and 15 Farvardin 1404 for today.
class DesktopWorld {
 public:
  explicit DesktopWorld(Screen& screen) : screen_(screen) { messages.RegisterIn(components); }

  [[nodiscard]] HostServices Where() {
    return {database.Connector(), components, screen_, clock, files_, spreadsheets_};
  }

  TestDatabase database;
  ComponentRegistry components;
  FakeMessages messages;
  FixedClock clock{ToGregorian({1404, 1, 15})};

 private:
  class NoFiles : public FileSystem {
   public:
    [[nodiscard]] bool FileExists(const std::string& /*path*/) const override { return false; }
  };
  class NoSpreadsheets : public SpreadsheetStarter {
   public:
    [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override { throw InputError("no spreadsheet"); }
  };

  Screen& screen_;
  NoFiles files_;
  NoSpreadsheets spreadsheets_;
};

}  // namespace koru::test
