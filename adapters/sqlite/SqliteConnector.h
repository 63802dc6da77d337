#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/sql/Database.h"

namespace koru {

/// Connects to the embedded database: `Provider=SQLite;Data Source=<file>`. Opening neither creates nor
/// changes a file (CreateDatabaseFile creates one). Throws DatabaseError with one sentence that names the
/// file if it cannot be used: no file named, missing, a folder, not permitted, no database, not the suite's,
/// of an older or newer version, locked.
class SqliteConnector : public DatabaseConnector {
 public:
  static constexpr std::chrono::milliseconds kBusyTimeout{5000};

  /// `busyTimeout`: how long a statement waits while another program writes.
  explicit SqliteConnector(std::chrono::milliseconds busyTimeout = kBusyTimeout)
      : busyTimeout_(busyTimeout) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

 private:
  std::chrono::milliseconds busyTimeout_;
};

/// The connection text of an embedded database file; `file` is UTF-8.
[[nodiscard]] std::string EmbeddedConnectionText(const std::string& file);

}  // namespace koru
