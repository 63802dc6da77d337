#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>

#include "benchmarks/Workload.h"

namespace koru::bench {
namespace {

constexpr int kRepetitions = 7;

/// Keeps the shortest processor time of each benchmark, in milliseconds.
class ShortestTimes : public benchmark::ConsoleReporter {
 public:
  ShortestTimes() : ConsoleReporter(OO_None) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      const double time = run.cpu_accumulated_time * 1000 / static_cast<double>(run.iterations);
      double& shortest = times_.try_emplace(run.run_name.function_name, time).first->second;
      shortest = std::min(shortest, time);
    }
    ConsoleReporter::ReportRuns(runs);
  }
  /// Infinite for one that did not run to its end.
  [[nodiscard]] double Of(const std::string& name) const {
    const auto found = times_.find(name);
    return found == times_.end() ? std::numeric_limits<double>::infinity() : found->second;
  }
  [[nodiscard]] bool Ran(const std::string& name) const { return times_.contains(name); }

 private:
  std::map<std::string, double> times_;
};

void Register(const std::string& name, const std::function<void()>& run,
              const std::function<void()>& before) {
  const auto body = [&run, &before](benchmark::State& state) {
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
  benchmark::RegisterBenchmark(name.c_str(), body)->Repetitions(kRepetitions)->Unit(benchmark::kMillisecond);
}

bool PrintRow(const std::string& name, const char* unit, double ours, double limit, double mark) {
  const bool ok = ours <= limit * mark;
  std::printf("| %-46s | %9.2f %s | %9.2f %s | %5.2f | %5.2f | %-6s |\n", name.c_str(), ours, unit, limit,
              unit, ours / limit, mark, ok ? "ok" : "missed");
  return ok;
}

}  // namespace

bool RunAndReport(const std::vector<Workload>& workloads, const std::vector<Size>& sizes, int argc,
                  char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return false;
  for (const Workload& workload : workloads) {
    Register(workload.name + ": ours", workload.ours, workload.before);
    Register(workload.name + ": limit", workload.limit, workload.before);
  }
  ShortestTimes times;
  benchmark::RunSpecifiedBenchmarks(&times);
  bool allMet = true;
  std::printf("\n| workload | ours | limit | ratio | mark | |\n|---|---|---|---|---|---|\n");
  for (const Workload& workload : workloads) {
    if (!times.Ran(workload.name + ": ours") && !times.Ran(workload.name + ": limit"))
      continue;  // filtered out
    const double ours = times.Of(workload.name + ": ours");
    allMet &= PrintRow(workload.name, "ms", ours, times.Of(workload.name + ": limit"), workload.mark);
  }
  for (const Size& size : sizes) {
    allMet &= PrintRow(size.name, "MB", static_cast<double>(size.ours) / 1e6,
                       static_cast<double>(size.limit) / 1e6, size.mark);
  }
  return allMet;
}

}  // namespace koru::bench
