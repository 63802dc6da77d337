#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
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

  /// Sends a batch of statements once, and passes its results to `take` in order as they are read; a result
  /// without columns is of a statement that only writes. Throws DatabaseError without statement at the first
  /// that fails; IsLost then says whether the connection is still usable.
  /// A batch of several `statements` may take longer than one (OdbcTimeouts).
  void Run(std::string_view batch, const std::function<void(Recordset)>& take, std::size_t statements = 1);
  /// The first result that has columns.
  Recordset Run(std::string_view batch);

  /// `{? = CALL procedure( ?, ... ) }`: its return value. `procedure` is a name and nothing else.
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters);

  /// Whether what is sent from now on is part of a transaction, which is undone when the connection is lost.
  void SetInTransaction(bool isIn) { isInTransaction_ = isIn; }

  /// Whether the server is gone, or did not answer in time: a late answer would belong to a statement that
  /// nobody waits for.
  [[nodiscard]] bool IsLost() const { return lost_; }

 private:
  using Handle = OdbcHandle<SQL_HANDLE_STMT>;

  void Connect(const OdbcTarget& target);
  [[nodiscard]] bool HasAttribute(SQLINTEGER attribute) const;
  void Execute(const Handle& statement, std::string_view text, std::size_t statements = 1);
  void ReadResults(const Handle& statement, const std::function<void(Recordset)>& take);
  void Check(SQLRETURN result, const Handle& statement);

  OdbcTimeouts timeouts_;
  std::chrono::seconds limit_{0};  ///< of the newest batch
  OdbcEnvironment environment_;
  OdbcHandle<SQL_HANDLE_DBC> connection_;
  bool lost_ = false;
  bool isInTransaction_ = false;
};

}  // namespace koru
