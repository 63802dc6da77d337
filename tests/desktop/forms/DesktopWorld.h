#pragma once

#include "tests/support/DatabaseFixture.h"

namespace koru::test {

/// The host in tests of the component's windows: a real database, the screen that the test brings, and 15
/// Farvardin 1404 for today.
class DesktopWorld : public DatabaseFixture {
 public:
  explicit DesktopWorld(Screen& windows) : windows_(windows) { clock.SetToday(ToGregorian({1404, 1, 15})); }

  [[nodiscard]] HostServices Where() { return ServicesOn(windows_); }

 private:
  Screen& windows_;
};

}  // namespace koru::test
