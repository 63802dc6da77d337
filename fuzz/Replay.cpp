// Runs a target over the kept inputs, for compilers that have no fuzzer: each argument is a file or a folder
// of files.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "fuzz/Require.h"

namespace {

std::vector<std::filesystem::path> InputsOf(const std::filesystem::path& place) {
  if (!std::filesystem::is_directory(place)) return {place};
  std::vector<std::filesystem::path> inputs;
  for (const auto& entry : std::filesystem::directory_iterator(place)) inputs.push_back(entry.path());
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

void Run(const std::filesystem::path& input) {
  std::ifstream stream(input, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot be read: " + input.string());
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
  static_cast<void>(std::printf("%s\n", input.c_str()));
  static_cast<void>(std::fflush(stdout));
  LLVMFuzzerTestOneInput(data.data(), data.size());
}

}  // namespace

int main(int argc, char** argv) {
  try {
    std::size_t count = 0;
    for (int argument = 1; argument < argc; ++argument) {
      for (const auto& input : InputsOf(argv[argument])) {
        Run(input);
        ++count;
      }
    }
    static_cast<void>(std::printf("%zu inputs\n", count));
    return count > 0 ? 0 : 2;
  } catch (const std::exception& failure) {
    static_cast<void>(std::fprintf(stderr, "%s\n", failure.what()));
    return 1;
  }
}
