#pragma once

#include <memory>
#include <string>

#include "adapters/odbc/OdbcTarget.h"
#include "platform/sql/Database.h"

namespace koru {

/// Connects through ODBC to the server that the connection text names (ReadTarget). Throws OdbcConnectError
/// with one sentence that names the driver, the server, the user or the database as the cause, within the
/// login timeout also when the server does not answer.
class OdbcConnector : public DatabaseConnector {
 public:
  explicit OdbcConnector(OdbcTimeouts timeouts = {}) : timeouts_(timeouts) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

 private:
  OdbcTimeouts timeouts_;
};

}  // namespace koru
