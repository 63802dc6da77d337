#pragma once

#include <optional>
#include <string>
#include <vector>

#include "database/Sample.h"
#include "database/scratch/ScratchDatabase.h"

namespace koru {

/// What the program was asked for.
struct CommandLine {
  enum class Command { HostScreen, CreateSample, CreateSchema, Check, Play, Help, Version };

  Command command = Command::HostScreen;
  std::vector<std::string> files;  ///< the scenarios of Play; the one file of CreateSample
  std::string connection;          ///< the database to work on; empty for the host screen: the one used last
  std::optional<SampleSize> sample =
      SampleSize::Standard;  ///< of CreateSample and CreateSchema; nothing: none
  ScratchRoute::Way way = ScratchRoute::Way::EmbeddedFile;  ///< how Play reaches the scenarios' databases
  bool desktop = false;                                     ///< Play on the windows
  std::string pictures;                                     ///< folder for the pictures of Play; empty: none
  bool platformNamed = false;  ///< the toolkit was told its platform with `-platform`
};

/// Reads the arguments behind the program's name. Throws InputError naming the argument.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

/// What `--help` prints.
[[nodiscard]] std::string HelpText();

}  // namespace koru
