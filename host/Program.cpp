#include "host/Program.h"

#include <QApplication>
#include <filesystem>
#include <iostream>
#include <optional>
#include <system_error>

#include "database/Sample.h"
#include "desktop/Application.h"
#include "host/CommandLine.h"
#include "host/HostProgram.h"
#include "host/Platform.h"
#include "host/PlayCommand.h"
#include "host/play/DesktopStage.h"
#include "host/play/FormStage.h"
#include "platform/Errors.h"

namespace koru {
namespace {

constexpr int kDone = 0;
constexpr int kStoryFailed = 1;
constexpr int kUnusable = 2;

int PlayOnForms(const CommandLine& line) {
  const auto stage = [](Person& person, DatabaseConnector& databases) -> std::unique_ptr<Stage> {
    return std::make_unique<FormStage>(person, databases);
  };
  return PlayStories(line.files, stage, std::cout) ? kDone : kStoryFailed;
}

void MakeFolder(const std::string& folder) {
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) throw InputError("پوشة تصويرها ساخته نشد: " + folder + " (" + error.message() + ")");
}

int PlayOnDesktop(const CommandLine& line, int& argc, char** argv) {
  if (!line.pictures.empty()) MakeFolder(line.pictures);
  std::optional<MemoryScreen> memory;
  if (!line.platformNamed && !HasScreen()) memory.emplace();
  QApplication application(argc, argv);
  SetUpApplication(application);
  QApplication::setQuitOnLastWindowClosed(false);
  const auto stage = [&](Person& person, DatabaseConnector& databases) -> std::unique_ptr<Stage> {
    return std::make_unique<DesktopStage>(person, databases, line.pictures);
  };
  return PlayStories(line.files, stage, std::cout) ? kDone : kStoryFailed;
}

int MakeSample(const std::string& file) {
  CreateSample(file, [](int percent) { std::cout << '\r' << percent << " %" << std::flush; });
  std::cout << "\r" << file << std::endl;
  return kDone;
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
      return MakeSample(line.files.front());
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
