#include "host/HostSettings.h"

#include <algorithm>
#include <sstream>

#include "host/ServerConnection.h"

namespace koru {
namespace {

constexpr const char* kControl = "comInvCounting";
constexpr const char* kConnection = "OleConnectionString";
constexpr const char* kProgram = "program";
constexpr const char* kRecent = "Recent";
constexpr const char* kBackup = "BackupBeforeRegistration";
constexpr const char* kMaximized = "maximized";

}  // namespace

void HostSettings::Bag::Write(std::string_view key, const PropertyValue& value,
                              const PropertyValue& defaultValue) {
  const auto* const text = std::get_if<std::string>(&value);
  const bool isConnection = key == kConnection && text != nullptr;
  IniPropertyBag::Write(key, isConnection ? PropertyValue(WithoutPasswords(*text)) : value, defaultValue);
}

HostSettings::HostSettings(const std::filesystem::path& file) : file_(IniFile::Read(file)) {
  const auto stored = file_.Get(kControl, kConnection);
  if (!stored || WithoutPasswords(*stored) == *stored) return;
  file_.Set(kControl, kConnection, WithoutPasswords(*stored));  // written by an earlier version
  file_.Write();
}

std::vector<std::string> HostSettings::RecentDatabases() const {
  std::vector<std::string> databases;
  for (std::size_t number = 1; number <= kMaxRecent; ++number) {
    const auto database = file_.Get(kProgram, kRecent + std::to_string(number));
    if (database) databases.push_back(WithoutPasswords(*database));
  }
  return databases;
}

void HostSettings::RememberDatabase(const std::string& connection) {
  const std::string stored = WithoutPasswords(connection);
  std::vector<std::string> databases = RecentDatabases();
  std::erase(databases, stored);
  databases.insert(databases.begin(), stored);
  SetRecent(databases);
}

void HostSettings::SetRecent(const std::vector<std::string>& databases) {
  for (std::size_t at = 0; at < kMaxRecent; ++at) {
    const std::string key = kRecent + std::to_string(at + 1);
    if (at < databases.size()) {
      file_.Set(kProgram, key, databases[at]);
    } else {
      file_.Remove(kProgram, key);
    }
  }
}

std::optional<WindowSize> HostSettings::SizeOf(std::string_view window) const {
  const auto stored = file_.Get(kProgram, "Size." + std::string(window));
  if (!stored) return std::nullopt;
  std::istringstream words(*stored);
  words.imbue(std::locale::classic());
  WindowSize size;
  char times = 0;
  std::string state;
  if (!(words >> size.width >> times >> size.height) || times != 'x') return std::nullopt;
  if (size.width <= 0 || size.height <= 0) return std::nullopt;
  words >> state;
  size.maximized = state == kMaximized;
  return size;
}

void HostSettings::KeepSize(std::string_view window, const WindowSize& size) {
  file_.Set(kProgram, "Size." + std::string(window),
            std::to_string(size.width) + "x" + std::to_string(size.height) +
                (size.maximized ? std::string(" ") + kMaximized : ""));
}

bool HostSettings::BacksUpBeforeRegistration() const { return file_.Get(kProgram, kBackup) == "-1"; }

void HostSettings::SetBacksUpBeforeRegistration(bool does) {
  if (does) {
    file_.Set(kProgram, kBackup, "-1");
  } else {
    file_.Remove(kProgram, kBackup);
  }
}

}  // namespace koru
