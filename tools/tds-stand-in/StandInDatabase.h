#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/system/TemporaryFolder.h"
#include "tools/tds-stand-in/StandInLocks.h"
#include "tools/tds-stand-in/StandInSchema.h"

namespace koru::test {

/// The database that the stand-in's clients share: an embedded one in a temporary file, empty at first, and
/// removed at the end. Each client has a connection of its own to it (StandInSession). A reader sees what is
/// committed and waits for nobody; one transaction at a time writes.
class StandInDatabase {
 public:
  StandInDatabase();
  StandInDatabase(const StandInDatabase&) = delete;
  StandInDatabase& operator=(const StandInDatabase&) = delete;
  ~StandInDatabase() = default;

  [[nodiscard]] std::string File() const { return (folder_.Path() / "database").string(); }
  [[nodiscard]] SqliteConnection Connect() const;
  /// For later connections: without `order by` no server promises an order, and rows come in another one than
  /// that of their keys unless this is called.
  void GiveRowsByKey() { rowsByKey_ = true; }
  /// Used while entered (StandInLocks), as is the connection of each client.
  [[nodiscard]] StandInSchema& Schema() { return *schema_; }
  [[nodiscard]] StandInLocks& Locks() { return locks_; }

 private:
  TemporaryFolder folder_;
  std::atomic<bool> rowsByKey_{false};
  StandInLocks locks_;
  std::unique_ptr<SqliteConnection> engine_;  ///< keeps the file's log until the end
  std::unique_ptr<StandInSchema> schema_;
};

}  // namespace koru::test
