#include "benchmarks/Memory.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "benchmarks/Countings.h"
#include "benchmarks/Program.h"

namespace koru::bench {
namespace {

std::size_t ResidentBytes() {
  std::size_t all = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> all >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

}  // namespace

void PrintMemoryGrowth(const std::string& fullSample) {
  Program program(fullSample, kCountingOf100, {});
  program.Draw();
  const std::size_t before = ResidentBytes();
  if (!program.Form().ViewInvCounting(kFullCounting)) throw std::runtime_error("no full counting");
  program.Draw();
  const std::size_t after = ResidentBytes();
  std::size_t texts = 0;
  const Grid& lines = program.Form().flexDetail;
  for (int row = 0; row < lines.Rows(); ++row) {
    for (int col = 0; col < lines.Cols(); ++col) texts += lines.TextMatrix(row, col).size();
  }
  std::printf("%zu %zu\n", after - before, texts);
}

Size MemoryOfFullCounting(const std::string& program, const std::string& fullSample) {
  const std::string command = "'" + program + "' --memory-growth '" + fullSample + "'";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"), pclose);
  Size size{"memory, 32,767 lines open", 4};
  if (!output || std::fscanf(output.get(), "%zu %zu", &size.ours, &size.limit) != 2)
    throw std::runtime_error("the memory could not be measured");
  return size;
}

}  // namespace koru::bench
