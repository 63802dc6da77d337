#pragma once

#include <gtest/gtest.h>

#include <string>

#include "component/comInvCounting.h"
#include "tests/support/DatabaseFixture.h"

namespace koru::test {

/// A control over a fresh database of a small suite:
///   stores 1 (has children 2 and 3), 2 (the default), 3; user 7 "علي رضايي" may work in 1 and 2, user 8
///   "مريم كاظمي" in 3; user 7 holds every right; goods G1, G2, G3; unit 1 "عدد"; counting 10 temporary with
///   two lines, 11 final (number 1) with one line, 12 temporary with every optional column NULL and no lines,
///   13 whose creator is gone.
class CountingWorld : public testing::Test, public DatabaseFixture {
 protected:
  explicit CountingWorld(TestDatabase::Kind kind = TestDatabase::Kind::FileOrServer);

  /// The counting form, which a View or ClearShow has loaded.
  [[nodiscard]] frmInvCounting& Form() { return *control.CountingForm(); }
  /// Opens the counting and lets the form's timer tick.
  void View(std::int32_t id);
  void ViewAndEdit(std::int32_t id);
  void Click(Button& button);
  [[nodiscard]] DocumentMode Mode() const { return control.Shared().DocMode; }
  /// How many statements a command sends to find changes by other stations before it writes: a file knows
  /// that nobody has written, a server is asked for the header and the lines.
  [[nodiscard]] int LooksForChangesFirst() const { return database.IsOnServer() ? 2 : 0; }
  [[nodiscard]] std::string Cell(int row, int col) {
    return std::string(Form().flexDetail.TextMatrix(row, col));
  }

  comInvCounting control{*this, Services()};
};

inline constexpr const char* kNotPermitted =
    "شما مجاز به انجام اين عمليات نيستيد. با نگهدارنده سيستم هماهنگ نماييد.";

}  // namespace koru::test
