#include "host/Program.h"

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>

#include "desktop/toolkit/Application.h"
#include "host/CommandLine.h"
#include "host/DatabaseCommands.h"
#include "host/HostProgram.h"
#include "host/Platform.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "scenario/FormDriver.h"
#include "scenario/PlayCommand.h"
#include "scenario/desktop/WindowDriver.h"

namespace koru {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kUnusable = 2;

/// The server stands in the environment and not on the command line, where everybody on the machine could
/// read its password.
ScratchRoute RouteOf(const CommandLine& line) {
  if (line.way != ScratchRoute::Way::Server) return {line.way, {}};
  const char* server = std::getenv("KORU_SQLSERVER");
  if (server == nullptr) throw InputError("رشته اتصال سرور در متغير محيطي KORU_SQLSERVER نيامده است.");
  return {line.way, server};
}

int PlayOnForms(const CommandLine& line) {
  const auto driver = [](ScenarioUser& user, DatabaseConnector& databases) -> std::unique_ptr<UiDriver> {
    return std::make_unique<FormDriver>(user, databases);
  };
  return PlayScenarios(line.files, driver, RouteOf(line), std::cout) ? kDone : kFailed;
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error)
    throw InputError("پوشة تصويرها ساخته نشد: " + LeftToRight(folder) + " (" + error.message() + ")");
}

int PlayOnDesktop(const CommandLine& line, int& argc, char** argv) {
  if (!line.pictures.empty()) MakeFolder(line.pictures);
  std::optional<MemoryScreen> memory;
  if (!line.platformNamed && !HasScreen()) memory.emplace();
  QApplication application(argc, argv);
  SetUpApplication(application);
  QApplication::setQuitOnLastWindowClosed(false);
  const auto driver = [&](ScenarioUser& user, DatabaseConnector& databases) -> std::unique_ptr<UiDriver> {
    return std::make_unique<WindowDriver>(user, databases, line.pictures);
  };
  return PlayScenarios(line.files, driver, RouteOf(line), std::cout) ? kDone : kFailed;
}

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
    case CommandLine::Command::Play:
      return line.desktop ? PlayOnDesktop(line, argc, argv) : PlayOnForms(line);
    case CommandLine::Command::HostScreen:
      break;
  }
  if (!line.platformNamed && !HasScreen()) {
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
