#include "adapters/odbc/OdbcConnector.h"

#include "adapters/odbc/OdbcDatabase.h"
#include "adapters/odbc/OdbcDrivers.h"

namespace koru {

std::unique_ptr<Database> OdbcConnector::Connect(const std::string& connectionText) {
  return std::make_unique<OdbcDatabase>(ReadTarget(connectionText, InstalledDrivers()), timeouts_);
}

}  // namespace koru
