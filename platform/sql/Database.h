#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/Recordset.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// RAII write batch, as one transaction. Until destruction, statements still run one by one and a failing one
/// does not undo those before it, but all of them are stored together at the end. No other connection begins
/// a write batch meanwhile. A batch can be lost, on a server with its connection: then nothing of it is
/// stored, later statements of it fail, and so does its end.
class WriteBatch {
 public:
  WriteBatch() = default;
  WriteBatch(const WriteBatch&) = delete;
  WriteBatch& operator=(const WriteBatch&) = delete;
  virtual ~WriteBatch() = default;

  /// Stores what was written and ends the batch. Throws DatabaseError when nothing of it is stored, and
  /// UncertainWrite when it may be stored or not. The destructor of an unfinished batch (a statement failed)
  /// does the same but reports no error of its own.
  virtual void Finish() = 0;
};

/// RAII read snapshot. Until destruction, every read sees the data as of the first read, so that a
/// calculation over many goods is consistent; other connections may write meanwhile. A write on this
/// connection ends the snapshot: later reads see the current data. A server connection may ignore snapshots.
class ReadSnapshot {
 public:
  ReadSnapshot() = default;
  ReadSnapshot(const ReadSnapshot&) = delete;
  ReadSnapshot& operator=(const ReadSnapshot&) = delete;
  virtual ~ReadSnapshot() = default;
};

/// A connection to the suite's database. Not thread-safe.
class Database {
 public:
  Database() = default;
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  virtual ~Database() = default;

  /// Runs one statement in the dialect of the suite's server and reads all rows of its result. The caller has
  /// checked the typed spans (CheckTypedSpans). Throws DatabaseError with the statement; earlier statements
  /// are not undone.
  virtual Recordset Open(const SqlText& statement) = 0;

  /// Runs `{? = CALL procedure( ?, ... ) }` and returns the procedure's return value. Throws DatabaseError
  /// when the procedure is missing or fails.
  virtual std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) = 0;

  /// Runs statements in order, each as Open does, and passes each result with its index to `take`. A failing
  /// statement ends the run there: the results before it have been passed on, the statements after it have
  /// not run, and DatabaseError is thrown with the failing statement. A server may receive the statements
  /// together; `take` must not use the database.
  virtual void OpenAll(const std::vector<SqlText>& statements,
                       const std::function<void(std::size_t, const Recordset&)>& take) {
    for (std::size_t i = 0; i < statements.size(); ++i) take(i, Open(statements[i]));
  }

  /// How many statements OpenAll should be given at most, so that progress shows and a cancelled command ends
  /// soon: 1 where a statement takes no round trip.
  [[nodiscard]] virtual std::size_t StatementsPerTrip() const { return 1; }

  /// The key that this connection's newest insert gave its row; no value where the database cannot tell.
  /// Throws DatabaseError.
  [[nodiscard]] virtual std::optional<std::int64_t> InsertedKey() { return {}; }

  /// A number that changes whenever another connection has written, and never by this connection's own
  /// writes; no value where the database cannot tell. Throws DatabaseError.
  [[nodiscard]] virtual std::optional<std::int64_t> ForeignWrites() { return {}; }

  /// The program is idle: work that can wait may be done now. Never waits for another connection; what cannot
  /// be done now is tried again at the next call.
  virtual void Idle() noexcept {}

  /// Batches may nest; only the outermost has an effect. Waits for another connection's batch; throws
  /// DatabaseError when it does not end in time.
  [[nodiscard]] virtual std::unique_ptr<WriteBatch> BeginWriteBatch() = 0;

  /// Snapshots may nest; only the outermost has an effect. Throws DatabaseError.
  [[nodiscard]] virtual std::unique_ptr<ReadSnapshot> BeginReadSnapshot() {
    return std::make_unique<ReadSnapshot>();
  }
};

/// Opens connections. The connection text selects the database. An unusable text throws DatabaseError with a
/// sentence that names the reason and contains no password.
class DatabaseConnector {
 public:
  virtual ~DatabaseConnector() = default;
  [[nodiscard]] virtual std::unique_ptr<Database> Connect(const std::string& connectionText) = 0;
};

}  // namespace koru
