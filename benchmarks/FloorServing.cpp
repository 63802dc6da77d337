// Counters between the shelves reach a full counting that the desk has open in its real window.

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <mutex>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "benchmarks/Countings.h"
#include "benchmarks/FloorBench.h"
#include "benchmarks/RunMain.h"
#include "benchmarks/Workload.h"
#include "desktop/toolkit/Application.h"
#include "desktop/toolkit/Display.h"

namespace koru::bench {
namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr int kSeconds = 60;
constexpr std::chrono::seconds kFlatOut{10};
constexpr int kMoreThanChanges = 2'000;  ///< figures after which devices read all lines anew
constexpr double kMaxHold = 50;
constexpr double kMaxAnswer = 20;

/// The times of answers, in milliseconds, from all devices.
class Answers {
 public:
  void Note(SteadyClock::time_point sent) {
    const double took = std::chrono::duration<double, std::milli>(SteadyClock::now() - sent).count();
    const std::lock_guard lock(mutex_);
    times_.push_back(took);
  }
  void Sort() { std::sort(times_.begin(), times_.end()); }
  [[nodiscard]] std::size_t Number() const { return times_.size(); }
  /// After Sort.
  [[nodiscard]] double AtPercent(std::size_t percent) const {
    return times_.at(std::min(times_.size() * percent / 100, times_.size() - 1));
  }

 private:
  std::mutex mutex_;
  std::vector<double> times_;
};

/// Prints a row of the table, whose limit is the greatest value that is allowed.
bool PrintRow(const std::string& name, double ours, double most) {
  const bool ok = ours < most;
  std::printf("| %-50s | %8.2f ms | %8.2f ms | %5.2f | %4.1f | %-6s |\n", name.c_str(), ours, most,
              ours / most, 1.0, ok ? "ok" : "missed");
  return ok;
}

bool PrintHold(const std::string& name, const Hold& hold) {
  std::printf("%s: the desk was held for %.1f ms on the clock, %.1f ms of the processor\n", name.c_str(),
              hold.onClock, hold.ofProcessor);
  return PrintRow(name + ": longest hold", hold.onClock, kMaxHold);
}

void Print(const char* load, Answers& answers) {
  answers.Sort();
  std::printf("%s: %zu answers, p50 %.1f ms, p95 %.1f ms, p99 %.1f ms, longest %.1f ms\n", load,
              answers.Number(), answers.AtPercent(50), answers.AtPercent(95), answers.AtPercent(99),
              answers.AtPercent(100));
}

/// Each device enters a figure each second of a minute, and holds a request for changes besides.
bool RunMinute(FloorBench& floor) {
  const double before = floor.Sum();
  Answers answers;
  Hold hold;
  const auto begin = SteadyClock::now();
  floor.WhileDevicesWork(hold, [&, sequence = floor.TakeSequence(kSeconds)](int device) {
    const std::jthread listener([&, device](const std::stop_token& stop) { floor.Listen(device, stop); });
    const auto client = floor.Connect(device);
    for (int second = 0; second < kSeconds; ++second) {
      std::this_thread::sleep_until(begin +
                                    std::chrono::milliseconds(1000 * second + device * 1000 / kDevices));
      const auto sent = SteadyClock::now();
      const std::string answer = client->Post("/a/figures", floor.Figures(device, sequence + second, 1));
      answers.Note(sent);
      if (answer.find(R"("state":"stored")") == std::string::npos)
        throw std::runtime_error("not stored: " + answer);
    }
  });
  const auto applied = static_cast<long>(floor.Sum() - before);
  const long missing = kDevices * kSeconds - applied;
  Print("a figure a second", answers);
  std::printf("figures lost %ld, applied twice %ld\n", std::max(missing, 0L), std::max(-missing, 0L));
  std::printf("\n| workload | ours | limit | ratio | mark | |\n|---|---|---|---|---|---|\n");
  const bool isQuick =
      PrintRow("30 devices, a figure a second: an answer (p50)", answers.AtPercent(50), kMaxAnswer);
  return PrintHold("30 devices, a figure a second", hold) && isQuick && missing == 0;
}

/// Each device sends figure after figure, each when the last one has been answered.
bool RunFlatOut(FloorBench& floor, bool secure) {
  constexpr int kMost = 100'000;
  const double before = floor.Sum();
  Answers answers;
  Hold hold;
  const auto end = SteadyClock::now() + kFlatOut;
  floor.WhileDevicesWork(hold, [&, sequence = floor.TakeSequence(kMost)](int device) {
    const auto client = floor.Connect(device, secure);
    for (int sent = 0; sent < kMost && SteadyClock::now() < end; ++sent) {
      const auto begin = SteadyClock::now();
      client->Post("/a/figures", floor.Figures(device, sequence + sent, 1));
      answers.Note(begin);
    }
  });
  Print(secure ? "flat out, https" : "flat out, http", answers);
  const bool isWhole = floor.Sum() - before == static_cast<double>(answers.Number());
  if (!isWhole) std::printf("figures lost or applied twice\n");
  return PrintHold(secure ? "30 devices flat out, https" : "30 devices flat out", hold) && isWhole;
}

int Main(int argc, char** argv) {
  if (argc < 2) {
    std::fputs("usage: koru-floor-benchmarks FOLDER [options of Google Benchmark]\n", stderr);
    return 2;
  }
  const OffscreenDisplay display;
  QApplication application(argc, argv);
  SetUpApplication(application);
  QApplication::setQuitOnLastWindowClosed(false);
  const std::filesystem::path folder = argv[1];
  MakeFullSample((folder / "full-sample.koru").string());
  FloorBench floor((folder / "full-sample.koru").string(), folder / "floor");
  bool ok = true;
  if (argc == 2 || !std::string_view(argv[2]).starts_with("--benchmark_filter")) {
    ok = RunMinute(floor);
    ok &= RunFlatOut(floor, false);
    ok &= RunFlatOut(floor, true);
  }
  Hold ofKept;
  Hold ofPages;
  Hold ofChanges;
  Workload kept{"15,000 figures kept by 30 devices", 20, [&] { floor.SendKept(ofKept); },
                [&] { floor.EnterByHand(); }};
  kept.isOfWaiting = true;
  kept.maxMs = 2'000;
  Workload pages{"30 pages opened at once", 20, [&] { floor.OpenPages(ofPages); }, [&] { floor.MakeLines(); },
                 [&] { floor.EnterByHand(kMoreThanChanges); }};
  pages.isOfWaiting = true;
  pages.maxMs = 2'000;
  Workload changes{"32,767 lines changed at the desk, read by 30", 20,
                   [&] { floor.ReadChangedLines(ofChanges); }, [&] { floor.MakeLines(); }};
  changes.isOfWaiting = true;
  changes.maxMs = 2'000;
  argv[1] = argv[0];
  ok &= RunAndReport({kept, pages, changes}, {}, argc - 1, argv + 1);
  if (ofKept.onClock > 0) ok &= PrintHold(kept.name, ofKept);
  if (ofPages.onClock > 0) ok &= PrintHold(pages.name, ofPages);
  if (ofChanges.onClock > 0) ok &= PrintHold(changes.name, ofChanges);
  return ok ? 0 : 1;
}

}  // namespace
}  // namespace koru::bench

int main(int argc, char** argv) { return koru::bench::RunMain(koru::bench::Main, argc, argv); }
