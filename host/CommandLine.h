#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/Sample.h"

namespace koru {

/// The command line of koru-counting.
struct CommandLine {
  enum class Command { HostScreen, CreateSample, CreateSchema, Check, Help, Version };

  Command command = Command::HostScreen;
  std::vector<std::string> files;  ///< the one file of CreateSample
  std::string connection;          ///< empty for the host screen: the database used last
  std::optional<SampleSize> sample =
      SampleSize::Standard;    ///< of CreateSample and CreateSchema; none: no rows
  bool platformNamed = false;  ///< `-platform` names the platform of the toolkit
};

/// Reads the arguments after the program's name. Throws InputError naming the argument that cannot be used.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

/// The text of `--help`.
[[nodiscard]] std::string HelpText();

}  // namespace koru
