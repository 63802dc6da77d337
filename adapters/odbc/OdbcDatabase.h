#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcTarget.h"
#include "adapters/odbc/StatementTrip.h"
#include "platform/sql/Database.h"
#include "platform/sql/DatabaseError.h"

namespace koru {

class OdbcSession;

/// A server's database, reached through an ODBC driver.
///
/// A connection that breaks, or on which the server does not answer in time, fails the current statement,
/// which may or may not have run and is never sent again; the next statement opens a new connection. In a
/// write batch, which the server then undoes, no further statement is sent.
class OdbcDatabase : public Database {
 public:
  /// Connects; throws OdbcConnectError when that fails, and DatabaseError when the session cannot be set up.
  OdbcDatabase(OdbcTarget target, OdbcTimeouts timeouts);
  ~OdbcDatabase() override;

  Recordset Open(const SqlText& statement) override;
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  /// Sends the statements in trips (StatementTrip). A trip that the server refuses as a whole, because one
  /// statement names something that does not exist, is sent again statement by statement.
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override;
  [[nodiscard]] std::size_t StatementsPerTrip() const override { return StatementTrip::kMaxStatements; }
  /// Of the newest insert by Open; no value after one into a table without keys of the server, or by OpenAll.
  [[nodiscard]] std::optional<std::int64_t> InsertedKey() override { return insertedKey_; }
  /// Begins a transaction under the lock that all stations take (ServerTransaction.h). Finish throws
  /// DatabaseError when the transaction was lost, and UnansweredWrite when the connection breaks while it
  /// is committed.
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override;

 private:
  OdbcSession& Session();
  /// Runs `work` on the session. A failure carries the statement that `statement` names, ends a session that
  /// is of no more use, and notes the loss of a write batch.
  template <class Work, class Statement>
  auto Tried(Statement statement, Work work);
  /// The failure of a statement, in words that say whether the write batch is lost with it.
  [[nodiscard]] DatabaseError Reported(const DatabaseError& failure, const std::string& statement);
  [[nodiscard]] bool LosesBatch();
  void SendTrip(const StatementTrip& trip, const std::vector<SqlText>& statements, std::size_t first,
                const std::function<void(std::size_t, const Recordset&)>& take);
  void EndBatchLevel();

  OdbcTarget target_;
  OdbcTimeouts timeouts_;
  std::unique_ptr<OdbcSession> session_;
  std::optional<std::int64_t> insertedKey_;
  int batchLevels_ = 0;
  std::optional<DatabaseError> batchLoss_;  ///< why the current batch is lost
};

}  // namespace koru
