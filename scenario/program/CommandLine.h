#pragma once

#include <string>
#include <vector>

namespace koru {

/// The command line of koru-scenario.
struct ScenarioCommandLine {
  enum class Command { Run, Help, Version };

  Command command = Command::Run;
  std::vector<std::string> files;  ///< the scenarios
  bool desktop = false;            ///< on the windows, else on the forms
  std::string pictures;            ///< folder of the pictures; empty: no pictures
  bool server = false;             ///< on the server that KORU_SQLSERVER names
  bool platformNamed = false;      ///< `-platform` names the platform of the toolkit
};

/// Reads the arguments after the program's name. Throws InputError naming the argument that cannot be used.
[[nodiscard]] ScenarioCommandLine ParseScenarioCommandLine(const std::vector<std::string>& arguments);

/// The text of `--help`.
[[nodiscard]] std::string ScenarioHelp();

}  // namespace koru
