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
#include "platform/text/Errors.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"

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

class NoMachine : public FileSystem, public SpreadsheetStarter {
 public:
  [[nodiscard]] bool FileExists(const std::string& /*path*/) const override { return false; }
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override { throw InputError("no spreadsheets"); }
};

/// The counting form without a window; counting 2 is being edited.
class Desk : private ControlHost {
 public:
  explicit Desk(const std::string& file) {
    messages_.RegisterIn(components_);
    control_.SetOLEConnectionString("Provider=SQLite;Data Source=" + file);
    control_.SetUserID(1);
    if (!control_.View(kCounting)) throw std::runtime_error("no counting of 500 lines");
    Press(Form().cmdEdit);
  }
  [[nodiscard]] frmInvCounting& Form() { return *control_.CountingForm(); }
  void Press(Button& button) {
    Form().Timer1.Fire();
    if (!button.UserClick() || !messages_.Texts().empty())
      throw std::runtime_error(button.Name() + " failed");
  }

 private:
  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view /*key*/) override {}

  SqliteConnector sqlite_;
  ComponentRegistry components_;
  test::FakeMessages messages_;
  test::FakeScreen screen_;
  test::FixedClock clock_{kSampleToday};
  NoMachine machine_;
  comInvCounting control_{*this, {sqlite_, components_, screen_, clock_, machine_, machine_}};
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
