#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/Recordset.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// While it lives, the statements of its database still run one by one, and a failing one leaves what was
/// written before it; but all of them reach the disk together when it goes, done or failed. On a server it
/// may do nothing.
class WriteBatch {
 public:
  WriteBatch() = default;
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;
  virtual ~WriteBatch() = default;

  /// Brings what was written to the disk and ends the group; throws DatabaseError when that fails. A group
  /// that goes without it (because a statement failed) does the same and keeps its own failure to itself.
  virtual void Finish() = 0;
};

/// While it lives, the statements of its database that read all see the data as the first of them did, so
/// that a calculation over many goods is of one moment; others may write meanwhile. A statement that writes
/// ends this, and the rest of the group sees the data as it then is. On a server it may do nothing.
class ReadSnapshot {
 public:
  ReadSnapshot() = default;
  ReadSnapshot(const ReadSnapshot&) = delete;
  ReadSnapshot& operator=(const ReadSnapshot&) = delete;
  virtual ~ReadSnapshot() = default;
};

/// A connection to the suite's database. Used by one thread.
class Database {
 public:
  Database() = default;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  virtual ~Database() = default;

  /// Runs one statement, in the dialect of the suite's server, and reads all rows that it returns. The typed
  /// spans have been checked by the caller. Throws DatabaseError with the statement; what other statements
  /// wrote before stays.
  virtual Recordset Open(const SqlText& statement) = 0;

  /// `{? = CALL procedure( ?, ... ) }`: the procedure's return value. Throws DatabaseError when there is no
  /// such procedure or it fails.
  virtual std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) = 0;

  /// Groups may nest; the outermost counts.
  [[nodiscard]] virtual std::unique_ptr<WriteBatch> BeginWriteBatch() = 0;

  /// Groups may nest; the outermost counts. Throws DatabaseError.
  [[nodiscard]] virtual std::unique_ptr<ReadSnapshot> BeginReadSnapshot() {
    return std::make_unique<ReadSnapshot>();
  }
};

/// Makes connections. The connection text decides which database; a text that names nothing usable throws
/// DatabaseError with a sentence that says so and repeats no password.
class DatabaseConnector {
 public:
  virtual ~DatabaseConnector() = default;
  [[nodiscard]] virtual std::unique_ptr<Database> Connect(const std::string& connectionText) = 0;
};

}  // namespace koru
