#include <QApplication>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
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

/// The workloads of a group, which are measured without what other groups leave in memory and caches. Throws
/// std::invalid_argument for an unknown one.
std::vector<Workload> WorkloadsOf(std::string_view group, const fs::path& folder,
                                  const fs::path& fullSample) {
  if (group == "calculating") return CalculatingWorkloads(fullSample.string());
  if (group == "saving") return SavingWorkloads(CopyForWriting(fullSample));
  if (group != "showing") throw std::invalid_argument("unknown group: " + std::string(group));
  const std::string search = (folder / "search.koru").string();
  MakeSearchDatabase(search);
  std::vector<Workload> all = ShowingWorkloads(fullSample.string(), (folder / "workbooks").string());
  all.push_back(ImportWorkload(fullSample.string(), (folder / "counts.xlsx").string()));
  all.push_back(SearchWorkload(search));
  return all;
}

int Main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: koru-benchmarks FOLDER calculating|saving|showing [options of Google Benchmark]\n",
               stderr);
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
  const std::string_view group = argv[2];
  std::vector<Size> sizes;
  if (group == "showing") sizes.push_back(MemoryOfFullCounting(argv[0], fullSample.string()));
  argv[2] = argv[0];
  return RunAndReport(WorkloadsOf(group, folder, fullSample), sizes, argc - 2, argv + 2) ? 0 : 1;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) { return koru::bench::RunMain(koru::bench::Main, argc, argv); }
