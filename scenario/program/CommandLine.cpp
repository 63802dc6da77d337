#include "scenario/program/CommandLine.h"

#include "platform/text/Errors.h"

namespace koru {
namespace {

using Command = ScenarioCommandLine::Command;

class Reader {
 public:
  explicit Reader(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  ScenarioCommandLine Read() {
    while (at_ < arguments_.size()) Take(arguments_[at_++]);
    if (line_.command == Command::Run) Check();
    return line_;
  }

 private:
  void Take(const std::string& argument) {
    if (argument == "--help" || argument == "-h") {
      line_.command = Command::Help;
    } else if (argument == "--version") {
      line_.command = Command::Version;
    } else if (argument == "--desktop") {
      line_.desktop = true;
    } else if (argument == "--pictures") {
      line_.pictures = ValueOf(argument);
    } else if (argument == "--server") {
      line_.server = true;
    } else if (argument == "-platform") {
      static_cast<void>(ValueOf(argument));
      line_.platformNamed = true;
    } else if (argument.starts_with("-")) {
      throw InputError("unknown option: " + argument);
    } else {
      line_.files.push_back(argument);
    }
  }

  const std::string& ValueOf(const std::string& option) {
    if (at_ == arguments_.size()) throw InputError(option + " needs a value");
    return arguments_[at_++];
  }

  void Check() const {
    if (line_.files.empty()) throw InputError("no scenario is named; --help says how");
    if (!line_.pictures.empty() && !line_.desktop) throw InputError("--pictures needs --desktop");
  }

  const std::vector<std::string>& arguments_;
  std::size_t at_ = 0;
  ScenarioCommandLine line_;
};

}  // namespace

ScenarioCommandLine ParseScenarioCommandLine(const std::vector<std::string>& arguments) {
  return Reader(arguments).Read();
}

std::string ScenarioHelp() {
  return R"(koru-scenario: runs scenarios of koru-counting

usage: koru-scenario [OPTION]... FILE...

Each FILE is a scenario: what a user does step by step, and what the forms, messages, statements and
tables must then be. docs/scenarios.md describes the language. Each scenario has a database of its own.
One line per scenario is printed, and a last line with the counts.

  --desktop           run on the windows, with mouse and key events; without it, on the forms
  --pictures FOLDER   with --desktop: save a PNG file at each `picture` step
  --server            use the scratch database of the server whose connection text is in the
                      environment variable KORU_SQLSERVER; each scenario empties it first
  -platform NAME      with --desktop: the platform of the Qt toolkit; without it, the display, or
                      an off-screen one where there is none
  --help, --version

Exit codes: 0 all scenarios passed, 1 a scenario failed, 2 an argument or a file cannot be used.

examples:
  koru-scenario scenarios/*.scenario
  koru-scenario --desktop --pictures shots scenarios/demonstration.scenario
)";
}

}  // namespace koru
