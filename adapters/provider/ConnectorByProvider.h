#pragma once

#include <memory>
#include <string>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "platform/sql/Database.h"

namespace koru {

/// Lets the connection text's Provider decide which database it is. A text whose database this program cannot
/// reach throws DatabaseError with one sentence, without the password.
class ConnectorByProvider : public DatabaseConnector {
 public:
  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

 private:
  SqliteConnector sqlite_;
  OdbcConnector odbc_;
};

}  // namespace koru
