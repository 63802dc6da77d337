// A calculation on a server that is far away. The server is the stand-in, in this program.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <stdexcept>

#include "adapters/odbc/OdbcConnector.h"
#include "benchmarks/RunMain.h"
#include "benchmarks/Workload.h"
#include "component/comInvCounting.h"
#include "lines/LineColumns.h"
#include "tests/support/ComponentFixture.h"
#include "tests/tools/tds-stand-in/SuiteOfGoods.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::bench {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

struct Server {
  OdbcConnector odbc;
  test::StandInServer standIn;
};

/// A counting that is being edited on the server.
class CountingOnServer : private Server, public test::ComponentFixture {
 public:
  explicit CountingOnServer(int lines) : ComponentFixture(odbc) {
    test::FillSuite(*odbc.Connect(standIn.ConnectionText()), lines);
    control_.SetOLEConnectionString(standIn.ConnectionText());
    control_.SetUserID(7);
    control_.View(1);
    Form().Timer1.Fire();
    Form().cmdEdit.UserClick();
    Form().Timer1.Fire();
  }

  /// Calculates the lines while each round trip takes that long beside the server's work.
  void Calculate(microseconds delay) {
    standIn.SetDelay(delay);
    Form().flexDetail.SetTextMatrix(1, LineColumn::SystemCounting, {});
    Form().cmdCalc.UserClick();
    standIn.SetDelay(microseconds(0));
    if (Form().flexDetail.TextMatrix(1, LineColumn::SystemCounting).empty()) {
      throw std::runtime_error("the calculation failed");
    }
  }

 private:
  frmInvCounting& Form() { return *control_.CountingForm(); }

  comInvCounting control_{*this, Services()};
};

int Main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: koru-server-benchmarks FOLDER [options of Google Benchmark]\n", stderr);
    return 2;
  }
  CountingOnServer counting(5'000);
  Workload far{"cmdCalc, 5,000 lines, a server 5 ms away", 10, [&] { counting.Calculate(milliseconds(5)); },
               [&] { counting.Calculate(milliseconds(0)); }};
  far.isOfWaiting = true;
  far.maxMs = 6'000;
  argv[1] = argv[0];
  return RunAndReport({far}, {}, argc - 1, argv + 1) ? 0 : 1;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) { return koru::bench::RunMain(koru::bench::Main, argc, argv); }
