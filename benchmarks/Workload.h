#pragma once

#include <functional>
#include <string>
#include <vector>

namespace koru::bench {

/// An operation that the user waits for, and its limit: a program written for it alone.
struct Workload {
  std::string name;  ///< including the size
  double mark = 0;   ///< the maximum ratio to the limit
  std::function<void()> ours;
  std::function<void()> limit;
  std::function<void()> before = {};  ///< sets up the common initial state; not measured
  // If the sizes differ, times per step are compared.
  int steps = 1;
  int limitSteps = 1;
  bool isOfWaiting = false;  ///< the time on the clock is compared instead of the processor's
  double maxMs = 0;          ///< the maximum of our time; 0: none
};

/// A size in bytes, against its minimum.
struct Size {
  std::string name;
  double mark = 0;
  std::size_t ours = 0;
  std::size_t limit = 0;
};

/// Runs all workloads several times, interleaved, and prints `workload | ours | limit | ratio | mark | ok or
/// missed` with the minimum of each workload's times. Returns whether every mark was met. `argv` may contain
/// Google Benchmark's options.
bool RunAndReport(const std::vector<Workload>& workloads, const std::vector<Size>& sizes, int argc,
                  char** argv);

}  // namespace koru::bench
