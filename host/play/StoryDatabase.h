#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/Database.h"

namespace koru {

/// Which way the databases of stories are reached.
struct StoryRoute {
  enum class Way {
    EmbeddedFile,  ///< an embedded database file of the story's own
    ThroughOdbc,   ///< the same file behind the ODBC driver for SQLite
    Server         ///< the scratch database of a server, made anew for every story
  };
  Way way = Way::EmbeddedFile;
  std::string server;  ///< the connection text of Way::Server
};

/// The database that a story plays on, and the story's own connection to it.
class StoryDatabase {
 public:
  enum class Contents { Sample, Empty };

  /// Makes it; `folder` takes its file. Throws InputError or DatabaseError when that cannot be done.
  StoryDatabase(const StoryRoute& route, Contents contents, const std::filesystem::path& folder);

  /// What the control is given.
  [[nodiscard]] const std::string& ConnectionText() const { return connectionText_; }

  /// Runs one statement of the story's author, in the dialect of the suite's server. Throws DatabaseError.
  Recordset Run(const std::string& sql);

 private:
  std::string connectionText_;
  std::unique_ptr<Database> own_;
};

}  // namespace koru
