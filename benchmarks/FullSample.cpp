#include "benchmarks/FullSample.h"

#include <filesystem>
#include <iostream>

#include "database/Sample.h"

namespace koru::bench {

void MakeFullSample(const std::string& path) {
  if (std::filesystem::exists(path)) return;
  std::cout << "Making the full sample (once)" << std::endl;
  CreateSample(path, SampleSize::Full,
               [](int percent) { std::cout << '\r' << percent << " %" << std::flush; });
  std::cout << '\n';
}

}  // namespace koru::bench
