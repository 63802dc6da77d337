#include "scenario/program/Program.h"

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <system_error>

#include "adapters/sheet/TableFile.h"
#include "desktop/toolkit/Application.h"
#include "desktop/toolkit/Display.h"
#include "platform/text/Errors.h"
#include "scenario/FormDriver.h"
#include "scenario/RunScenarios.h"
#include "scenario/desktop/WindowDriver.h"
#include "scenario/program/CommandLine.h"

namespace koru {
namespace {

constexpr int kPassed = 0;
constexpr int kFailed = 1;
constexpr int kUnusable = 2;

/// The connection text is in the environment, because other users of the machine can read a command line and
/// the password in it.
std::optional<std::string> ServerOf(const ScenarioCommandLine& line) {
  if (!line.server) return std::nullopt;
  const char* const server = std::getenv("KORU_SQLSERVER");
  if (server == nullptr) throw InputError("--server needs a connection text in KORU_SQLSERVER");
  return server;
}

bool RunOnForms(const ScenarioCommandLine& line) {
  const auto driver = [](ScenarioUser& user, DatabaseConnector& databases) -> std::unique_ptr<UiDriver> {
    return std::make_unique<FormDriver>(user, databases);
  };
  return RunScenarios(line.files, driver, &ReadTableFile, ServerOf(line), std::cout);
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw InputError("the folder " + folder + " cannot be made: " + error.message());
}

bool RunOnWindows(const ScenarioCommandLine& line, int& argc, char** argv) {
  if (!line.pictures.empty()) MakeFolder(line.pictures);
  std::optional<OffscreenDisplay> offscreen;
  if (!line.platformNamed && !HasDisplay()) offscreen.emplace();
  QApplication application(argc, argv);
  SetUpApplication(application);
  QApplication::setQuitOnLastWindowClosed(false);
  const auto driver = [&](ScenarioUser& user, DatabaseConnector& databases) -> std::unique_ptr<UiDriver> {
    return std::make_unique<WindowDriver>(user, databases, line.pictures);
  };
  return RunScenarios(line.files, driver, &ReadTableFile, ServerOf(line), std::cout);
}

int Run(const ScenarioCommandLine& line, int& argc, char** argv) {
  switch (line.command) {
    case ScenarioCommandLine::Command::Help:
      std::cout << ScenarioHelp();
      return kPassed;
    case ScenarioCommandLine::Command::Version:
      std::cout << "koru-scenario " << KORU_VERSION << std::endl;
      return kPassed;
    case ScenarioCommandLine::Command::Run:
      break;
  }
  const bool passed = line.desktop ? RunOnWindows(line, argc, argv) : RunOnForms(line);
  return passed ? kPassed : kFailed;
}

}  // namespace

int RunScenarioProgram(int argc, char** argv) {
  try {
    return Run(ParseScenarioCommandLine({argv + 1, argv + argc}), argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "koru-scenario: " << error.what() << std::endl;
    return kUnusable;
  }
}

}  // namespace koru
