#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/sql/Database.h"

namespace koru {

/// The database of one scenario or test, and its own connection to it.
class ScratchDatabase {
 public:
  /// `file` (UTF-8) is an embedded database and `server` the connection text of a server's scratch database.
  /// With a server, its tables are emptied and filled with the rows of the file; without one, the file itself
  /// is used. Throws InputError when the server's database is not a scratch database, and DatabaseError.
  explicit ScratchDatabase(const std::string& file, const std::optional<std::string>& server = {});

  /// The connection text for the component.
  [[nodiscard]] const std::string& ConnectionText() const { return connectionText_; }
  [[nodiscard]] bool IsOnServer() const { return onServer_; }
  /// The connector for that text.
  [[nodiscard]] DatabaseConnector& Connector() { return *connector_; }

  /// A connection of its own.
  [[nodiscard]] Database& Own() { return *own_; }
  /// Runs one statement in the dialect of the suite's server. Inserted rows may have keys that the server
  /// would assign. Throws DatabaseError.
  Recordset Run(const std::string& sql);
  /// Runs statements separated by `;` one by one, in one write batch. Throws the DatabaseError of the first
  /// that fails; the effects of those before it remain.
  void RunAll(const std::string& sql);

 private:
  [[nodiscard]] static SqlText WithOwnKeys(const std::string& sql);

  bool onServer_;
  std::unique_ptr<DatabaseConnector> connector_;
  std::string connectionText_;
  std::unique_ptr<Database> own_;
};

}  // namespace koru
