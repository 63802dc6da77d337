#include "host/Backups.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <vector>

#include "adapters/system/WriteWhole.h"
#include "database/sqlserver/NeededTables.h"
#include "host/ServerConnection.h"
#include "platform/text/FilePath.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

constexpr const char* kFolder = "backups";
constexpr const char* kAutomatic = "-auto-";
constexpr const char* kEnding = ".db";

std::string DateText(const BackupTime& time) {
  std::string text = SolarText(time.date);
  std::replace(text.begin(), text.end(), '/', '-');
  return text;
}

std::string Digits(const BackupTime& time, bool seconds) {
  std::array<char, 16> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), seconds ? "%02d%02d%02d" : "%02d%02d", time.hour,
                                  time.minute, time.second));
  return text.data();
}

/// Whether the name is that of an automatic backup: `<stem>-auto-0000-00-00-000000.db`.
bool IsAutomatic(std::string_view name, const std::string& stem) {
  constexpr std::string_view kPattern = "0000-00-00-000000.db";
  const std::string beginning = stem + kAutomatic;
  if (!name.starts_with(beginning)) return false;
  name.remove_prefix(beginning.size());
  return std::equal(name.begin(), name.end(), kPattern.begin(), kPattern.end(), [](char c, char pattern) {
    return pattern == '0' ? c >= '0' && c <= '9' : c == pattern;
  });
}

}  // namespace

std::optional<fs::path> EmbeddedFileOf(const std::string& connection) {
  if (IsServer(connection)) return std::nullopt;
  const std::string file = NameOfDatabase(connection);
  return file.empty() ? std::nullopt : std::optional(PathOf(file));
}

std::string BackupName(const fs::path& database, const BackupTime& time) {
  return TextOf(database.stem()) + "-" + DateText(time) + "-" + Digits(time, false) + kEnding;
}

fs::path AutomaticBackup(const fs::path& database, const BackupTime& time) {
  return fs::absolute(database).parent_path() / kFolder /
         PathOf(TextOf(database.stem()) + kAutomatic + DateText(time) + "-" + Digits(time, true) + kEnding);
}

void RemoveOldBackups(const fs::path& database) {
  std::error_code error;
  std::vector<fs::path> found;
  const std::string stem = TextOf(database.stem());
  fs::directory_iterator entry(fs::absolute(database).parent_path() / kFolder, error);
  for (const fs::directory_iterator end; !error && entry != end; entry.increment(error)) {
    if (IsAutomatic(TextOf(entry->path().filename()), stem)) found.push_back(entry->path());
  }
  std::sort(found.rbegin(), found.rend());  // the names are in the order of time
  for (std::size_t at = kKeptAutomaticBackups; at < found.size(); ++at) fs::remove(found[at], error);
}

BackupOutcome TakeBackup(const fs::path& database, const fs::path& to, const BackupProgress& progress) {
  std::vector<std::string_view> tables;
  for (const NeededTable& table : NeededTables()) tables.push_back(table.name);
  std::error_code ignored;
  fs::create_directories(to.parent_path(), ignored);  // the copying reports what is wrong with it
  const BackupOutcome outcome = BackUp(TextOf(database), TextOf(to), tables, progress);
  if (outcome == BackupOutcome::Done) SyncFolder(to.parent_path());
  return outcome;
}

}  // namespace koru
