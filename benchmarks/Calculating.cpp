#include "benchmarks/Calculating.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <stdexcept>

#include "benchmarks/Countings.h"
#include "benchmarks/Limits.h"
#include "benchmarks/Program.h"
#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"

namespace koru::bench {
namespace {

void CheckLine(const Grid& lines, int row, const GoodStates& goods) {
  const std::string barcode(lines.TextMatrix(row, LineColumn::Barcode));
  const auto found = goods.find(barcode);
  const GoodState good = found == goods.end() ? GoodState() : found->second;
  const double rate = good.dispatchRate > 0 ? good.dispatchRate : good.receiptRate;
  const auto number = [&](int column) { return Val(lines.TextMatrix(row, column)); };
  const bool same = std::fabs(number(LineColumn::SystemCounting) - good.quantity) < 1e-6 &&
                    (rate == 0 || number(LineColumn::Rate) == rate) &&
                    (good.unit == 0 || number(LineColumn::ScaleID) == good.unit);
  if (!same) throw std::runtime_error("the calculation by hand gives something else for " + barcode);
}

/// Four programs with countings of different sizes, and a plain SQLite connection.
struct Calculating {
  explicit Calculating(const std::string& file)
      : plain(file),
        full(file, kFullCounting, {}),
        lines8000(file, kCountingOf8000, {}),
        lines2000(file, kCountingOf2000, {}),
        empty(file, kCountingOfNone, {}) {
    full.Press(full.Form().cmdCalc);
    const GoodStates goods = CalculateByHand(plain);
    const Grid& lines = full.Form().flexDetail;
    for (int row = 1; row < lines.Rows(); ++row) CheckLine(lines, row, goods);
    empty.Press(empty.Form().cmdGoods);  // a newly opened goods search has no criteria
  }

  static void Calculate(Program& program) { program.Press(program.Form().cmdCalc); }
  void ForgetGoods() {
    frmInvCounting& form = empty.Form();
    form.flexDetail.SetRows(1);
    form.GoodSearchCondition =
        SqlText(" tblGood.Barcode in (Select Barcode from tblInventoryCountingDetail Where CountingID=1)");
  }
  void AddGoods() {
    empty.Press(empty.Form().cmdGoods);
    if (empty.Form().flexDetail.Rows() != kMaxLines + 1) throw std::runtime_error("not all goods were added");
  }

  PlainConnection plain;
  Program full;
  Program lines8000;
  Program lines2000;
  Program empty;
};

}  // namespace

std::vector<Workload> CalculatingWorkloads(const std::string& fullSample) {
  const auto all = std::make_shared<Calculating>(fullSample);
  const auto calculateAll = [all] { Calculating::Calculate(all->full); };
  Workload of8000{"a line of cmdCalc, 8,000 lines beside 32,767", 1.5,
                  [all] { Calculating::Calculate(all->lines8000); }, calculateAll, Program::Draw};
  of8000.steps = 8'000;
  of8000.limitSteps = kMaxLines;
  Workload of2000{"a line of cmdCalc, 2,000 lines beside 32,767", 1.5,
                  [all] { Calculating::Calculate(all->lines2000); }, calculateAll, Program::Draw};
  of2000.steps = 2'000;
  of2000.limitSteps = kMaxLines;
  return {{"cmdCalc, 32,767 lines, 2,000,000 document lines", 5, calculateAll,
           [all] { benchmark::DoNotOptimize(CalculateByHand(all->plain)); }, Program::Draw},
          of8000,
          of2000,
          {"cmdGoods, 32,767 goods, beside cmdCalc", 1.3, [all] { all->AddGoods(); }, calculateAll,
           [all] {
             all->ForgetGoods();
             Program::Draw();
           }}};
}

}  // namespace koru::bench
