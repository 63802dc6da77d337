#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>

#include "benchmarks/Desk.h"
#include "benchmarks/FullSample.h"
#include "benchmarks/Limits.h"
#include "benchmarks/LinesByHand.h"
#include "benchmarks/SearchDatabase.h"
#include "benchmarks/SortByHand.h"
#include "benchmarks/Workload.h"
#include "platform/Numbers.h"
#include "platform/PersianText.h"
#include "search/frmInvSearch.h"

namespace koru::bench {
namespace {

constexpr const char* kLinesQuery =
    "select round(ifnull(BaseValue,0),0), tblGood.Barcode, FirstCounting, SecondCounting, ThirdCounting, "
    "AcceptedCounting, SystemCounting, ContradictionCounting, ifnull(ScaleID,-1), "
    "ifnull(tblGoodScale.Name,''), "
    "ifnull(tblGood.Code,''), tblGood.Name from tblInventoryCountingDetail join tblGood on "
    "tblInventoryCountingDetail.Barcode = tblGood.Barcode left join tblGoodScale on ScaleID = "
    "tblGoodScale.ID where "
    "CountingID = 1 order by RowNumber";

/// The counting of the full sample on a form, beside a connection without anything between.
class FullCounting {
 public:
  explicit FullCounting(const std::string& file) : desk_(file), plain_(file) {
    desk_.lines.FillInvCounterDetailData(1);
    desk_.form.lblIDVal.SetCaption("1");
    desk_.form.gmpInventory.Select(1);
    desk_.form.gdpFromDate.SetValue(ParseIso("2025-03-21"));
    desk_.form.gdpToDate.SetValue(ParseIso("2026-03-20"));
    ready_ = ReadyLines(Grid());
    names_ = KeysOf<std::string>(Grid(), LineColumn::GoodName, PersianSortKey);
    rates_ = KeysOf<double>(Grid(), LineColumn::Rate, Val);
  }

  std::vector<Workload> Workloads() {
    return {
        {"calculation, 32,767 lines, 2,000,000 document lines", 5,
         [this] { desk_.quantity.CalculateAllLines(); },
         [this] { benchmark::DoNotOptimize(CalculateByHand(plain_)); }},
        {"loading a counting, 32,767 lines", 2, [this] { desk_.lines.FillInvCounterDetailData(1); },
         [this] { benchmark::DoNotOptimize(CopyTexts(plain_, kLinesQuery)); }},
        {"temporary save, 32,767 lines", 2.5, [this] { Save(); }, [this] { SaveByHand(plain_, ready_); }},
        {"edit of an accepted count, 32,767 lines", 3, [this] { Edit(); },
         [this] { benchmark::DoNotOptimize(SumAmounts(Grid())); }},
        {"sort by name, 32,767 lines", 3,
         [this] { Grid().Sort(LineColumn::GoodName, SortMode::GenericAscending); },
         [this] { benchmark::DoNotOptimize(SortReady(names_)); }, [this] { SortByNumber(); }},
        {"sort by rate, 32,767 lines", 3,
         [this] { Grid().Sort(LineColumn::Rate, SortMode::GenericAscending); },
         [this] { benchmark::DoNotOptimize(SortReady(rates_)); }, [this] { SortByNumber(); }},
    };
  }

  /// What the grid takes beside the characters in it; the allocator's share is counted in.
  Size Memory() {
    desk_.form.flexDetail.SetRows(1);
    malloc_trim(0);
    const std::size_t before = mallinfo2().uordblks;
    desk_.lines.FillInvCounterDetailData(1);
    malloc_trim(0);
    std::size_t texts = 0;
    for (int row = 0; row < Grid().Rows(); ++row) {
      for (int col = 0; col < Grid().Cols(); ++col) texts += Grid().TextMatrix(row, col).size();
    }
    return {"memory of the grid beside its texts, 32,767 lines", 2.5, mallinfo2().uordblks - before, texts};
  }

 private:
  koru::Grid& Grid() { return desk_.form.flexDetail; }
  void SortByNumber() { Grid().Sort(LineColumn::RowNumber, SortMode::GenericAscending); }
  void Edit() {
    const int row = ++edited_ % 1000 + 1;
    if (!Grid().UserEdit(row, LineColumn::AcceptedCounting, std::to_string(edited_)))
      throw InputError("not edited");
  }
  void Save() {
    desk_.shared.DocMode = DocumentMode::Editing;
    desk_.save.Run();
  }

  Desk desk_;
  PlainConnection plain_;
  std::vector<ReadyLine> ready_;
  std::vector<std::pair<std::string, int>> names_;
  std::vector<std::pair<double, int>> rates_;
  int edited_ = 0;
};

/// A counting search that finds 30,000 countings.
class Searching {
 public:
  explicit Searching(const std::string& file) : desk_(file), plain_(file) {
    form_.Load();
    desk_.screen.Show(form_, false);
  }
  Workload AsWorkload() {
    return {
        "counting search, 30,000 found", 2,
        [this] {
          form_.cmdSearch.UserClick();
          if (form_.flexSearch.Rows() != kCountingsFound + 1) throw InputError("not all were found");
        },
        [this] {
          benchmark::DoNotOptimize(CopyTexts(
              plain_,
              "select ID, Code, ManualCode, InvName, FarsiCreateDate, FullName, FarsiFromDate, FarsiToDate,"
              " Counter1, Counter2, Counter3, Accepter from vwInventoryCounting order by ID"));
        }};
  }

 private:
  Desk desk_;
  PlainConnection plain_;
  frmInvSearch form_{desk_.shared, [](std::int32_t) { return true; }};
};

int Main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: koru-benchmarks FOLDER [options of Google Benchmark]\n", stderr);
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  const std::string full = (folder / "full-sample.koru").string();
  const std::string search = (folder / "search.koru").string();
  MakeFullSample(full);
  MakeSearchDatabase(search);
  FullCounting counting(full);
  Searching searching(search);
  const std::vector<Size> sizes = {counting.Memory()};
  std::vector<Workload> workloads = counting.Workloads();
  workloads.push_back(searching.AsWorkload());
  argv[1] = argv[0];
  return RunAndReport(workloads, sizes, argc - 1, argv + 1) ? 0 : 1;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) {
  try {
    return koru::bench::Main(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 2;
  }
}
