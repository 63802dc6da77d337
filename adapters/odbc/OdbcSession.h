#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcHandle.h"
#include "adapters/odbc/OdbcTarget.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// One open ODBC connection. Each statement's rows are read to the end before the next is sent.
class OdbcSession {
 public:
  /// Opens it within the login timeout; throws OdbcConnectError.
  OdbcSession(const OdbcTarget& target, OdbcTimeouts timeouts);
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;
  ~OdbcSession();

  /// Sends a statement once. The rows are those of its first result that has columns. Throws DatabaseError
  /// without statement; IsLost then says whether the connection is still usable.
  Recordset Run(std::string_view statement);

  /// `{? = CALL procedure( ?, ... ) }`: its return value. `procedure` is a name and nothing else.
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters);

  /// Whether the server is gone, or did not answer in time: a late answer would belong to a statement that
  /// nobody waits for.
  [[nodiscard]] bool IsLost() const { return lost_; }

 private:
  using Handle = OdbcHandle<SQL_HANDLE_STMT>;

  void Connect(const OdbcTarget& target);
  [[nodiscard]] bool HasAttribute(SQLINTEGER attribute) const;
  void Execute(const Handle& statement, std::string_view text);
  Recordset ReadResults(const Handle& statement);
  void Check(SQLRETURN result, const Handle& statement);

  OdbcTimeouts timeouts_;
  OdbcEnvironment environment_;
  OdbcHandle<SQL_HANDLE_DBC> connection_;
  bool lost_ = false;
};

}  // namespace koru
