#include "host/play/StoryDatabase.h"

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/sqlite/FilePath.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/Sample.h"
#include "database/Schema.h"
#include "database/sqlserver/CopyRows.h"
#include "database/sqlserver/ScratchDatabase.h"

namespace koru {
namespace {

using Way = StoryRoute::Way;

std::unique_ptr<Database> MakeOnServer(const StoryRoute& route, StoryDatabase::Contents contents,
                                       const std::string& file) {
  std::unique_ptr<Database> server = OdbcConnector().Connect(route.server);
  EmptyScratchDatabase(*server);
  if (contents == StoryDatabase::Contents::Sample) {
    CreateSample(file, {});
    CopyRows(file, *server, RowsTarget::Server, {});
  }
  return server;
}

std::unique_ptr<Database> MakeFile(StoryDatabase::Contents contents, const std::string& file) {
  if (contents == StoryDatabase::Contents::Sample) {
    CreateSample(file, {});
  } else {
    CreateDatabaseFile(file, EmbeddedSchema());
  }
  return SqliteConnector().Connect(EmbeddedConnectionText(file));
}

}  // namespace

StoryDatabase::StoryDatabase(const StoryRoute& route, Contents contents,
                             const std::filesystem::path& folder) {
  const std::string file = TextOf(folder / "story.db");
  if (route.way == Way::Server) {
    own_ = MakeOnServer(route, contents, file);
    connectionText_ = route.server;
    return;
  }
  own_ = MakeFile(contents, file);
  connectionText_ =
      route.way == Way::ThroughOdbc ? EmbeddedThroughOdbcText(file) : EmbeddedConnectionText(file);
}

Recordset StoryDatabase::Run(const std::string& sql) {
  SqlText statement;
  statement += Typed(sql);  // all of it is the author's own
  return own_->Open(statement);
}

}  // namespace koru
