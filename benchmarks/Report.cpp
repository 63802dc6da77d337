#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>

#include "benchmarks/Workload.h"

namespace koru::bench {
namespace {

constexpr int kRepetitions = 7;

/// Records the minimum time of each benchmark, in milliseconds: the processor's, or that on the clock where
/// the benchmark uses it.
class ShortestTimes : public benchmark::ConsoleReporter {
 public:
  ShortestTimes() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const bool isOnClock = !run.run_name.time_type.empty();
      const double all = isOnClock ? run.real_accumulated_time : run.cpu_accumulated_time;
      const double time = all * 1000 / static_cast<double>(run.iterations);
      double& shortest = times_.try_emplace(run.run_name.function_name, time).first->second;
      shortest = std::min(shortest, time);
    }
    ConsoleReporter::ReportRuns(runs);
  }
  [[nodiscard]] double Of(const std::string& name) const { return times_.at(name); }
  /// Empty if the benchmark was filtered out.
  [[nodiscard]] bool Ran(const std::string& name) const { return times_.contains(name); }

 private:
  std::map<std::string, double> times_;
};

void Register(const std::string& name, const std::function<void()>& run, const Workload& workload) {
  const auto body = [&run, &before = workload.before](benchmark::State& state) {
    for (auto step : state) {
      static_cast<void>(step);
      if (before) {
        state.PauseTiming();
        before();
        state.ResumeTiming();
      }
      run();
    }
  };
  auto* const registered = benchmark::RegisterBenchmark(name.c_str(), body);
  registered->Repetitions(kRepetitions)->Unit(benchmark::kMillisecond);
  if (workload.isOfWaiting) registered->UseRealTime();
}

bool PrintRow(const std::string& name, const char* unit, double ours, double limit, double mark,
              bool isShortEnough = true) {
  const bool ok = ours <= limit * mark && isShortEnough;
  std::printf("| %-50s | %8.2f %s | %8.2f %s | %5.2f | %4.1f | %-6s |\n", name.c_str(), ours, unit, limit,
              unit, ours / limit, mark, ok ? "ok" : "missed");
  return ok;
}

bool PrintTimes(const Workload& workload, const ShortestTimes& times) {
  const double ours = times.Of(workload.name + ": ours") / workload.steps;
  const double limit = times.Of(workload.name + ": limit") / workload.limitSteps;
  const bool isShortEnough = workload.maxMs == 0 || ours <= workload.maxMs;
  if (workload.steps == 1) return PrintRow(workload.name, "ms", ours, limit, workload.mark, isShortEnough);
  return PrintRow(workload.name, "us", ours * 1000, limit * 1000, workload.mark);
}

}  // namespace

bool RunAndReport(const std::vector<Workload>& workloads, const std::vector<Size>& sizes, int argc,
                  char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return false;
  for (const Workload& workload : workloads) {
    Register(workload.name + ": ours", workload.ours, workload);
    Register(workload.name + ": limit", workload.limit, workload);
  }
  ShortestTimes times;
  benchmark::RunSpecifiedBenchmarks(&times);
  bool allMet = true;
  std::printf("\n| workload | ours | limit | ratio | mark | |\n|---|---|---|---|---|---|\n");
  for (const Workload& workload : workloads) {
    const bool bothRan = times.Ran(workload.name + ": ours") && times.Ran(workload.name + ": limit");
    if (bothRan) allMet &= PrintTimes(workload, times);
  }
  for (const Size& size : sizes) {
    allMet &= PrintRow(size.name, "MB", static_cast<double>(size.ours) / 1e6,
                       static_cast<double>(size.limit) / 1e6, size.mark);
  }
  return allMet;
}

}  // namespace koru::bench
