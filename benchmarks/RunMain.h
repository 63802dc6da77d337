#pragma once

#include <cstdio>
#include <exception>

namespace koru::bench {

/// What a measuring program's main function answers: that of `work`, or 2 with what failed on the error
/// output.
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
