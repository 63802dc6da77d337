#include "host/Program.h"

#include <iostream>

#include "desktop/toolkit/Display.h"
#include "host/CommandLine.h"
#include "host/DatabaseCommands.h"
#include "host/HostProgram.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kUnusable = 2;

int Run(const CommandLine& line, int& argc, char** argv) {
  switch (line.command) {
    case CommandLine::Command::Help:
      std::cout << HelpText();
      return kDone;
    case CommandLine::Command::Version:
      std::cout << "koru-counting " << KORU_VERSION << std::endl;
      return kDone;
    case CommandLine::Command::CreateSample:
      MakeSampleFile(line.files.front(), *line.sample, std::cout);
      return kDone;
    case CommandLine::Command::CreateSchema:
      MakeSuiteDatabase(line.connection, line.sample, std::cout);
      return kDone;
    case CommandLine::Command::Check:
      return ReportCheck(line.connection, std::cout) ? kDone : kFailed;
    case CommandLine::Command::HostScreen:
      break;
  }
  if (!line.platformNamed && !HasDisplay()) {
    throw InputError("نمايشگري براي باز كردن پنجره پيدا نشد (DISPLAY).");
  }
  return RunHostScreen(line.connection, argc, argv);
}

}  // namespace

int RunProgram(int argc, char** argv) {
  try {
    return Run(ParseCommandLine({argv + 1, argv + argc}), argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "koru-counting: " << error.what() << std::endl;
    return kUnusable;
  }
}

}  // namespace koru
