#include "adapters/odbc/OdbcConnector.h"

#include <utility>

#include "adapters/odbc/EmbeddedDialect.h"
#include "adapters/odbc/OdbcConnectError.h"
#include "adapters/odbc/OdbcDatabase.h"
#include "adapters/odbc/OdbcDrivers.h"
#include "adapters/odbc/ServerDialect.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/ConnectionText.h"

namespace koru {
namespace {

/// The driver would take any file and make a missing one; the embedded adapter says what is wrong with it.
void CheckFile(const std::string& file) {
  try {
    static_cast<void>(SqliteConnector().Connect(EmbeddedConnectionText(file)));
  } catch (const DatabaseError& failure) {
    throw OdbcConnectError(OdbcConnectError::Step::Database, failure.ServerText(), failure.Code());
  }
}

std::unique_ptr<OdbcDialect> DialectOf(const OdbcTarget& target) {
  if (target.kind == OdbcTarget::Kind::Server) return std::make_unique<ServerDialect>();
  CheckFile(target.database);
  TeachSqlitePersian();
  return std::make_unique<EmbeddedDialect>();
}

}  // namespace

std::unique_ptr<Database> OdbcConnector::Connect(const std::string& connectionText) {
  OdbcTarget target = ReadTarget(connectionText, InstalledDrivers());
  std::unique_ptr<OdbcDialect> dialect = DialectOf(target);
  return std::make_unique<OdbcDatabase>(std::move(target), timeouts_, std::move(dialect));
}

std::string EmbeddedThroughOdbcText(const std::string& file) {
  return "Provider=ODBC;Dialect=SQLite;Driver=SQLite3;Database=" + QuotedForConnection(file);
}

}  // namespace koru
