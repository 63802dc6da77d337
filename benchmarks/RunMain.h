#pragma once

#include <cstdio>
#include <exception>

namespace koru::bench {

/// Runs `work` as a main function: returns its exit code, or 2 after printing the exception to standard
/// error.
template <class Work>
int RunMain(Work work, int argc, char** argv) {
  try {
    return work(argc, argv);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return 2;
  }
}

}  // namespace koru::bench
