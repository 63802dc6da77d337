#pragma once

#include <memory>
#include <string>

#include "adapters/odbc/OdbcTarget.h"
#include "platform/sql/Database.h"

namespace koru {

/// Connects through ODBC to what the connection text names (ReadTarget): the suite's server, or an embedded
/// database file behind an ODBC driver for SQLite. Throws OdbcConnectError with one sentence that names the
/// driver, the server, the user or the database as the thing in the way, within the login timeout also when
/// the server says nothing.
class OdbcConnector : public DatabaseConnector {
 public:
  explicit OdbcConnector(OdbcTimeouts timeouts = {}) : timeouts_(timeouts) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

 private:
  OdbcTimeouts timeouts_;
};

/// The connection text of an embedded database file (UTF-8) behind the ODBC driver that Debian installs under
/// the name SQLite3.
[[nodiscard]] std::string EmbeddedThroughOdbcText(const std::string& file);

}  // namespace koru
