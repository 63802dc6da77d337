#pragma once

#include <memory>
#include <string>

#include "platform/sql/Database.h"

namespace koru {

/// Which way the databases of scenarios and tests are reached.
struct ScratchRoute {
  enum class Way {
    EmbeddedFile,  ///< an embedded database file of the trial's own
    ThroughOdbc,   ///< the same file behind the ODBC driver for SQLite
    Server         ///< the scratch database of a server, made anew for every trial
  };
  Way way = Way::EmbeddedFile;
  std::string server;  ///< the connection text of Way::Server
};

/// The database that a scenario or test has to itself, and its own connection to it.
class ScratchDatabase {
 public:
  /// `file` (UTF-8) is an embedded database: the one that is reached, or, on a server, the one whose rows the
  /// emptied tables take over. Throws InputError or DatabaseError when that cannot be done.
  ScratchDatabase(const ScratchRoute& route, const std::string& file);

  /// What the component is given.
  [[nodiscard]] const std::string& ConnectionText() const { return connectionText_; }
  [[nodiscard]] bool IsOnServer() const { return way_ == ScratchRoute::Way::Server; }
  /// What makes connections from it.
  [[nodiscard]] DatabaseConnector& Connector() { return *connector_; }

  /// The trial's own connection.
  [[nodiscard]] Database& Own() { return *own_; }
  /// Runs one statement of the author's, in the dialect of the suite's server. Rows that it inserts may bring
  /// the keys that the server would give. Throws DatabaseError.
  Recordset Run(const std::string& sql);
  /// Runs statements that `;` parts one by one, and writes them together where that is faster. Throws the
  /// DatabaseError of the first that fails; what was written before it stays.
  void RunAll(const std::string& sql);

 private:
  [[nodiscard]] static SqlText WithOwnKeys(const std::string& sql);

  ScratchRoute::Way way_;
  std::unique_ptr<DatabaseConnector> connector_;
  std::string connectionText_;
  std::unique_ptr<Database> own_;
};

}  // namespace koru
