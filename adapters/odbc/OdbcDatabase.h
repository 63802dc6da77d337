#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcDialect.h"
#include "adapters/odbc/OdbcTarget.h"
#include "platform/sql/Database.h"

namespace koru {

class OdbcSession;

/// A database behind an ODBC driver.
///
/// A connection that breaks, or on which the server did not answer in time, fails the statement that was
/// under way, which may or may not have run and is never sent again; the next statement opens a new
/// connection.
class OdbcDatabase : public Database {
 public:
  /// Connects; throws OdbcConnectError when that fails, and DatabaseError when the session cannot be set up.
  OdbcDatabase(OdbcTarget target, OdbcTimeouts timeouts, std::unique_ptr<OdbcDialect> dialect);
  ~OdbcDatabase() override;

  Recordset Open(const SqlText& statement) override;
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  /// Does nothing on a server, which decides by itself when it writes to its disk.
  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override;

 private:
  OdbcSession& Session();
  void RunAlone(const std::string& statement);
  void EndGroup();
  /// Runs `work` on the session; a failure carries the statement and ends a session that is of no more use.
  template <class Work>
  auto Tried(const std::string& statement, Work work);

  OdbcTarget target_;
  OdbcTimeouts timeouts_;
  std::unique_ptr<OdbcDialect> dialect_;
  std::unique_ptr<OdbcSession> session_;
  int openGroups_ = 0;
};

}  // namespace koru
