#include "adapters/sqlite/CreateDatabaseFile.h"

#include <filesystem>
#include <system_error>

#include "adapters/sqlite/FileFormat.h"
#include "adapters/sqlite/WorkingFile.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

SqliteConnection OpenNew(const fs::path& file, const std::string& path) {
  try {
    return {TextOf(file), SqliteConnection::Mode::Create, std::chrono::seconds(0)};
  } catch (const DatabaseError& failure) {
    throw InputError("پروندة پايگاه داده ساخته نشد: " + LeftToRight(path) + " (" + failure.ServerText() +
                     ")");
  }
}

void Write(SqliteConnection connection, std::string_view schemaSql,
           const std::function<void(SqliteConnection&)>& fill) {
  connection.Execute("PRAGMA journal_mode=MEMORY; PRAGMA synchronous=FULL; PRAGMA cache_size=-65536; BEGIN");
  connection.Execute(std::string(schemaSql));
  if (fill) fill(connection);
  connection.Execute("PRAGMA application_id=" + std::to_string(kApplicationId) + "; PRAGMA user_version=" +
                     std::to_string(kSchemaVersion) + "; COMMIT; PRAGMA journal_mode=WAL");
}

void RefuseExisting(const fs::path& target, const std::string& path) {
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(target, ignored))) {
    throw InputError("پرونده اي به اين نام هست و رونويسي نمي شود: " + LeftToRight(path));
  }
}

/// Gives the finished file its name. Creating a hard link fails if the name is taken, also by a program that
/// was faster; on a file system without links, the file is renamed.
void GiveName(const fs::path& working, const fs::path& target, const std::string& path) {
  std::error_code error;
  fs::create_hard_link(working, target, error);
  if (!error) return;
  RefuseExisting(target, path);
  fs::rename(working, target, error);
  if (error)
    throw InputError("پروندة پايگاه داده ساخته نشد: " + LeftToRight(path) + " (" + error.message() + ")");
}

}  // namespace

void CreateDatabaseFile(const std::string& path, std::string_view schemaSql,
                        const std::function<void(SqliteConnection&)>& fill) {
  const fs::path target = PathOf(path);
  RefuseExisting(target, path);
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  std::error_code ignored;
  if (!fs::is_directory(folder, ignored)) throw InputError("پوشة اين پرونده نيست: " + LeftToRight(path));
  const WorkingFile working(target);
  Write(OpenNew(working.Path(), path), schemaSql, fill);
  GiveName(working.Path(), target, path);
}

}  // namespace koru
