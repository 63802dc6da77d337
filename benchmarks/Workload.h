#pragma once

#include <functional>
#include <string>
#include <vector>

namespace koru::bench {

/// One thing that a person waits for, and the least that a program written for it alone would need.
struct Workload {
  std::string name;  ///< with its size
  double mark = 0;   ///< how many times the limit it may take
  std::function<void()> ours;
  std::function<void()> limit;
  std::function<void()> before = {};  ///< makes the state that both start from; not measured
  // Where the sizes of the two differ, the times of one step of each are compared.
  int steps = 1;
  int limitSteps = 1;
};

/// What something takes in bytes, beside the least that it could.
struct Size {
  std::string name;
  double mark = 0;
  std::size_t ours = 0;
  std::size_t limit = 0;
};

/// Runs all in turns, several times, and prints `workload | ours | limit | ratio | mark | ok or missed`; each
/// with the shortest time of its runs. Answers whether every mark was met. `argv` are Google Benchmark's own
/// options.
bool RunAndReport(const std::vector<Workload>& workloads, const std::vector<Size>& sizes, int argc,
                  char** argv);

}  // namespace koru::bench
