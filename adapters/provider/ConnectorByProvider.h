#pragma once

#include <memory>
#include <string>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/Database.h"

namespace koru {

/// Connects by the Provider of the connection text: `SQLite` to an embedded file, `SQLOLEDB.1` to the suite's
/// server through ODBC. Throws DatabaseError with one sentence, without the password, for any other text and
/// for a database that cannot be reached.
class ConnectorByProvider : public DatabaseConnector {
 public:
  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

 private:
  SqliteConnector sqlite_;
  OdbcConnector odbc_;
};

}  // namespace koru
