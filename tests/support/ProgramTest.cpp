#include "tests/support/ProgramTest.h"

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace koru::test {

ProgramTest::Outcome ProgramTest::Run(const std::string& arguments, const std::string& environment) const {
  const std::string command =
      "cd '" + Home() + "' && env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM -u KORU_SQLSERVER HOME='" +
      Home() + "' XDG_CONFIG_HOME='" + Home() + "/config' XDG_DATA_HOME='" + Home() +
      "/data' XDG_RUNTIME_DIR='" + Home() + "' " + environment + " '" + program_ + "' " + arguments +
      " >out 2>error";
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Text("out"), Text("error")};
}

void ProgramTest::Write(const std::string& file, const std::string& text) const {
  std::filesystem::create_directories((folder_.Path() / file).parent_path());
  std::ofstream(folder_.Path() / file, std::ios::binary) << text;
}

std::string ProgramTest::Text(const std::string& file) const {
  std::ifstream stream(folder_.Path() / file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace koru::test
