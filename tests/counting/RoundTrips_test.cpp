#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "adapters/odbc/OdbcConnector.h"
#include "component/comInvCounting.h"
#include "tests/support/ComponentFixture.h"
#include "tests/tools/tds-stand-in/SuiteOfGoods.h"
#include "tools/tds-stand-in/StandInServer.h"

// The round trips of the commands as a server counts them. With KORU_PRINT_TRIPS=1, a table of them and of
// the statements that they carry is printed. The large countings are for an optimised build, with
// KORU_FULL_SIZE=1.

namespace koru::test {
namespace {

/// Outlives the fixture that works on it.
struct HasStandIn {
  OdbcConnector odbc;
  StandInServer standIn;
};

/// A user's way with counting 1 of a suite of `lines` goods on a server.
class OnServer : private HasStandIn, public ComponentFixture {
 public:
  struct Cost {
    std::uint64_t trips = 0;
    std::size_t statements = 0;
  };

  explicit OnServer(int lines) : ComponentFixture(odbc) {
    FillSuite(*odbc.Connect(standIn.ConnectionText()), lines);
    clock.SetToday(std::chrono::year{2025} / 12 / 22);
    control.SetOLEConnectionString(standIn.ConnectionText());
    control.SetUserID(7);
    screen.OnModal = [](koru::Form& form) {
      auto* const goods = dynamic_cast<frmGoodSearch*>(&form);
      if (goods != nullptr) {
        goods->gmpInventory.UserSelect(Selector::kNothing);
        goods->cmdSearch.UserClick();
      }
    };
    control.ClearShow();  // what is read once is read now
    Form().Timer1.Fire();
  }

  [[nodiscard]] frmInvCounting& Form() { return *control.CountingForm(); }

  template <class Work>
  void Measure(const char* name, Work work) {
    recording.ForgetStatements();
    const std::uint64_t before = standIn.RoundTrips();
    work();
    costs[name] = {standIn.RoundTrips() - before, recording.Statements().size()};
    EXPECT_EQ(NewMessages(), Texts{}) << name;
    Form().Timer1.Fire();
  }
  void Press(const char* name, Button& button) {
    Measure(name, [&] { EXPECT_TRUE(button.UserClick()) << name; });
  }

  void DoAll() {
    Measure("load", [this] { EXPECT_TRUE(control.View(1)); });
    Press("edit", Form().cmdEdit);
    Press("calculate", Form().cmdCalc);
    Press("save", Form().cmdTmpSave);
    Press("edit again", Form().cmdEdit);
    Form().flexDetail.SetRows(1);
    Press("goods", Form().cmdGoods);
    Press("register", Form().cmdIsFinalized);
    messages.WillAnswer(FakeMessages::Answer::Yes);
    Measure("return", [this] {
      EXPECT_TRUE(Form().cmdFunc.UserClick());
      NewMessages();
    });
    Press("search", Form().cmdSearch);
  }

  comInvCounting control{*this, Services()};
  std::map<std::string, Cost> costs;
};

class RoundTrips : public testing::TestWithParam<int> {};

TEST_P(RoundTrips, Of_a_command_grow_by_one_for_fifty_lines_at_most) {
  const int lines = GetParam();
  OnServer small(2);
  small.DoAll();
  OnServer large(lines);
  large.DoAll();
  const auto most = [&](const char* command, int linesOfTrip) {
    const int more = linesOfTrip == 0 ? 0 : (lines + linesOfTrip - 1) / linesOfTrip;
    EXPECT_LE(large.costs[command].trips, small.costs[command].trips + static_cast<std::uint64_t>(more))
        << command;
  };
  most("load", 0);
  most("edit", 0);
  most("calculate", 50);
  most("goods", 50);
  most("save", 100);
  most("register", 100);
  most("return", 0);
  most("search", 0);
  EXPECT_EQ(large.Form().flexDetail.Rows(), lines + 1);
  if (std::getenv("KORU_PRINT_TRIPS") == nullptr) return;
  for (const auto& [name, cost] : large.costs) {
    std::cout << std::setw(6) << lines << " lines, " << std::setw(10) << name << ": " << std::setw(7)
              << cost.statements << " statements, " << std::setw(5) << cost.trips << " round trips, "
              << std::setw(3) << small.costs[name].trips << " of two lines\n";
  }
}

/// Two large countings take a minute: they run where the environment asks for the full size, as ./bench does.
std::vector<int> Sizes() {
  if (std::getenv("KORU_FULL_SIZE") == nullptr) return {100, 1000};
  return {100, 1000, 5000, 32767};
}

INSTANTIATE_TEST_SUITE_P(OfLines, RoundTrips, testing::ValuesIn(Sizes()));

}  // namespace
}  // namespace koru::test
