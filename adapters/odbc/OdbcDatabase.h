#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcTarget.h"
#include "platform/sql/Database.h"

namespace koru {

class OdbcSession;

/// A server's database, reached through an ODBC driver.
///
/// A connection that breaks, or on which the server does not answer in time, fails the current statement,
/// which may or may not have run and is never sent again; the next statement opens a new connection.
class OdbcDatabase : public Database {
 public:
  /// Connects; throws OdbcConnectError when that fails, and DatabaseError when the session cannot be set up.
  OdbcDatabase(OdbcTarget target, OdbcTimeouts timeouts);
  ~OdbcDatabase() override;

  Recordset Open(const SqlText& statement) override;
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  /// Does nothing: the server decides by itself when it writes to its disk.
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override;

 private:
  OdbcSession& Session();
  /// Runs `work` on the session; a failure carries the statement and ends a session that is of no more use.
  template <class Work>
  auto Tried(const std::string& statement, Work work);

  OdbcTarget target_;
  OdbcTimeouts timeouts_;
  std::unique_ptr<OdbcSession> session_;
};

}  // namespace koru
