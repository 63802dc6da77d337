#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "adapters/system/TemporaryFolder.h"

namespace koru::test {

/// Runs a built program in a home of its own, without a display and without a server.
class ProgramTest : public testing::Test {
 protected:
  struct Outcome {
    int code = 0;  ///< -1 when the program did not end by itself
    std::string out;
    std::string error;
  };

  /// `program` is the path of its file.
  explicit ProgramTest(std::string program) : program_(std::move(program)) {}

  /// Runs the program in the home; `environment` is `NAME=value ...`, as a shell takes it.
  [[nodiscard]] Outcome Run(const std::string& arguments, const std::string& environment = "") const;
  [[nodiscard]] std::string Home() const { return folder_.Path().string(); }
  /// Writes a file of the home, and the folders in its name.
  void Write(const std::string& file, const std::string& text) const;
  /// The contents of a file of the home; empty when it does not exist.
  [[nodiscard]] std::string Text(const std::string& file) const;

  koru::TemporaryFolder folder_;

 private:
  std::string program_;
};

}  // namespace koru::test
