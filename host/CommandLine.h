#pragma once

#include <string>
#include <vector>

namespace koru {

/// What the program was asked for.
struct CommandLine {
  enum class Command { HostScreen, CreateSample, Play, Help, Version };

  Command command = Command::HostScreen;
  std::vector<std::string> files;  ///< the stories of Play; the one file of CreateSample
  std::string connection;          ///< connection text for the host screen; empty: the one used last
  bool desktop = false;            ///< Play on the windows
  std::string pictures;            ///< folder for the pictures of Play; empty: none
  bool platformNamed = false;      ///< the toolkit was told its platform with `-platform`
};

/// Reads the arguments behind the program's name. Throws InputError naming the argument.
[[nodiscard]] CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

/// What `--help` prints.
[[nodiscard]] std::string HelpText();

}  // namespace koru
