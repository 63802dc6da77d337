// A file of settings is read, or refused with file and line; every value survives being set, written and
// read, and what is not touched stays.

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/Require.h"
#include "host/IniFile.h"
#include "platform/text/Errors.h"

namespace {

using koru::IniFile;
using koru::fuzz::Require;

constexpr const char* kSection = "comInvCounting";

/// The file that inputs are written to, in memory where the machine has such a folder.
std::filesystem::path File() {
  static const std::filesystem::path file = [] {
    const std::filesystem::path memory = "/dev/shm";
    const auto folder = std::filesystem::exists(memory) ? memory : std::filesystem::temp_directory_path();
    return folder / ("koru-fuzz-settings-" + std::to_string(getpid()) + ".ini");
  }();
  return file;
}

void CheckValue(IniFile settings, const std::string& value) {
  settings.Set(kSection, "UserID", "7");
  settings.Set(kSection, "Fuzzed", value);
  settings.Write();
  IniFile again = IniFile::Read(File());
  Require(again.Get(kSection, "Fuzzed") == value, "a value survives being written and read");
  Require(again.Get(kSection, "UserID") == "7", "the other values stay");
  again.Remove(kSection, "Fuzzed");
  again.Write();
  Require(!IniFile::Read(File()).Get(kSection, "Fuzzed"), "a removed value is gone");
  Require(IniFile::Read(File()).Get(kSection, "UserID") == "7", "the other values stay");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(koru::fuzz::TextOf(data, size));
  std::filesystem::remove(File());
  CheckValue(IniFile::Read(File()), text);
  std::ofstream(File(), std::ios::binary | std::ios::trunc) << text;
  try {
    CheckValue(IniFile::Read(File()), text);
  } catch (const koru::InputError& refused) {
    Require(std::string(refused.what()).find(File().filename().string()) != std::string::npos,
            "a refusal names the file");
  }
  std::filesystem::remove(File());
  return 0;
}
