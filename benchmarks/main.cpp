#include <QApplication>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string_view>

#include "benchmarks/Calculating.h"
#include "benchmarks/Countings.h"
#include "benchmarks/Importing.h"
#include "benchmarks/Memory.h"
#include "benchmarks/RunMain.h"
#include "benchmarks/Saving.h"
#include "benchmarks/Showing.h"
#include "benchmarks/Workload.h"
#include "desktop/toolkit/Application.h"
#include "desktop/toolkit/Display.h"

namespace koru::bench {
namespace {

namespace fs = std::filesystem;

/// A fresh copy for the writing workloads, so that they do not invalidate the page cache of the reading ones.
std::string CopyForWriting(const fs::path& fullSample) {
  const fs::path copy = fs::path(fullSample).replace_filename("full-sample-written.koru");
  for (const char* suffix : {"", "-wal", "-shm"}) fs::remove(copy.string() + suffix);
  fs::copy_file(fullSample, copy);
  return copy.string();
}

std::vector<Workload> AllWorkloads(const fs::path& folder, const fs::path& fullSample) {
  const std::string search = (folder / "search.koru").string();
  MakeSearchDatabase(search);
  std::vector<Workload> all = CalculatingWorkloads(fullSample.string());
  for (Workload& workload : SavingWorkloads(CopyForWriting(fullSample))) all.push_back(std::move(workload));
  for (Workload& workload : ShowingWorkloads(fullSample.string(), (folder / "workbooks").string()))
    all.push_back(std::move(workload));
  all.push_back(ImportWorkload(fullSample.string(), (folder / "counts.xlsx").string()));
  all.push_back(SearchWorkload(search));
  return all;
}

int Main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: koru-benchmarks FOLDER [options of Google Benchmark]\n", stderr);
    return 2;
  }
  const OffscreenDisplay display;
  QApplication application(argc, argv);
  SetUpApplication(application);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argv[1] == std::string_view("--memory-growth") && argc == 3) {
    PrintMemoryGrowth(argv[2]);
    return 0;
  }
  const fs::path folder = argv[1];
  const fs::path fullSample = folder / "full-sample.koru";
  MakeFullSample(fullSample.string());
  const Size memory = MemoryOfFullCounting(argv[0], fullSample.string());
  argv[1] = argv[0];
  return RunAndReport(AllWorkloads(folder, fullSample), {memory}, argc - 1, argv + 1) ? 0 : 1;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) { return koru::bench::RunMain(koru::bench::Main, argc, argv); }
