// Runs one operation on a counting of 500 lines; scripts/instructions counts its instructions.

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "benchmarks/RunMain.h"
#include "component/comInvCounting.h"
#include "database/Sample.h"
#include "tests/support/ComponentFixture.h"

namespace {
std::function<void()> countedWork;
}  // namespace

/// The counted operation; callgrind refers to this function by name.
extern "C" __attribute__((noinline)) void CountedWork() { countedWork(); }

namespace koru::bench {
namespace {

constexpr std::int32_t kCounting = 2;

/// Counting 2 of the medium sample: the first 500 lines of counting 1.
void Prepare(const std::string& file) {
  CreateSample(file, SampleSize::Medium, {});
  SqliteConnection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(0))
      .Execute(
          "insert into tblInventoryCounting (ID, InventoryID, CreatorID, CreateDate, FarsiCreateDate, "
          "FromDate,"
          " FarsiFromDate, ToDate, FarsiToDate) select 2, InventoryID, CreatorID, CreateDate, "
          "FarsiCreateDate,"
          " FromDate, FarsiFromDate, ToDate, FarsiToDate from tblInventoryCounting where ID = 1;"
          "insert into tblInventoryCountingDetail select 2, Barcode, RowNumber, ScaleID, FirstCounting,"
          " SecondCounting, ThirdCounting, AcceptedCounting, SystemCounting, ContradictionCounting, BaseValue"
          " from tblInventoryCountingDetail where CountingID = 1 and RowNumber <= 500");
}

/// The counting form without a window; counting 2 is being edited.
class Desk {
 public:
  explicit Desk(const std::string& file) {
    host_.clock.SetToday(kSampleToday);
    control_.SetOLEConnectionString("Provider=SQLite;Data Source=" + file);
    control_.SetUserID(1);
    if (!control_.View(kCounting)) throw std::runtime_error("no counting of 500 lines");
    Press(Form().cmdEdit);
  }
  [[nodiscard]] frmInvCounting& Form() { return *control_.CountingForm(); }
  void Press(Button& button) {
    Form().Timer1.Fire();
    if (!button.UserClick() || !host_.messages.Texts().empty())
      throw std::runtime_error(button.Name() + " failed");
  }

 private:
  SqliteConnector sqlite_;  // not the host's connector: recording statements would be counted, too
  test::NoDatabaseFixture host_;
  comInvCounting control_{host_,
                          {.databases = sqlite_,
                           .components = host_.components,
                           .screen = host_.screen,
                           .clock = host_.clock,
                           .files = host_.files,
                           .spreadsheets = host_.spreadsheets}};
};

void Do(const std::string& work, const std::string& file) {
  const std::string copy = file + ".work";
  std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
  Desk desk(copy);
  if (work == "calculation") {
    countedWork = [&] { desk.Press(desk.Form().cmdCalc); };
  } else if (work == "save") {
    countedWork = [&] { desk.Press(desk.Form().cmdTmpSave); };
  } else if (work == "load") {
    countedWork = [&] { desk.Form().FillInvCounterDetailData(kCounting); };
  } else {
    throw std::runtime_error("no such work: " + work);
  }
  CountedWork();
  if (desk.Form().flexDetail.Rows() != 501) throw std::runtime_error("not 500 lines");
}

int Main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: koru-counted-work prepare|calculation|save|load FILE\n", stderr);
    return 2;
  }
  const std::string work = argv[1];
  if (work == "prepare") {
    Prepare(argv[2]);
  } else {
    Do(work, argv[2]);
  }
  return 0;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) { return koru::bench::RunMain(koru::bench::Main, argc, argv); }
