#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "adapters/sqlite/BackUp.h"
#include "platform/text/Date.h"

namespace koru {

/// The automatic backups that are kept of a database file; the oldest are removed.
inline constexpr std::size_t kKeptAutomaticBackups = 10;

/// The file of an embedded database; nothing for a server's database, whose own tools back it up.
[[nodiscard]] std::optional<std::filesystem::path> EmbeddedFileOf(const std::string& connection);

/// When a backup is taken, by the clock of the machine.
struct BackupTime {
  Date date;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// `stock-1404-12-29-1405.db` for the database `stock.db`.
[[nodiscard]] std::string BackupName(const std::filesystem::path& database, const BackupTime& time);

/// `backups/stock-auto-1404-12-29-140507.db` in the folder of `stock.db`.
[[nodiscard]] std::filesystem::path AutomaticBackup(const std::filesystem::path& database,
                                                    const BackupTime& time);

/// Removes the oldest automatic backups of that database, so that kKeptAutomaticBackups stay. Other files are
/// not touched; a file that cannot be removed stays.
void RemoveOldBackups(const std::filesystem::path& database);

/// BackUp with the tables that the component needs; the folder is made if it does not exist, and synced.
BackupOutcome TakeBackup(const std::filesystem::path& database, const std::filesystem::path& to,
                         const BackupProgress& progress);

}  // namespace koru
