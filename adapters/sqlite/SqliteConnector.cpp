#include "adapters/sqlite/SqliteConnector.h"

#include <sqlite3.h>

#include <filesystem>
#include <system_error>

#include "adapters/sqlite/FileFormat.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteDatabase.h"
#include "platform/sql/ConnectionText.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

[[noreturn]] void Fail(const std::string& sentence, int code) {
  throw DatabaseError(sentence, code, {}, CauseOf(code));
}

std::string FileNamed(const std::string& connectionText) {
  const ConnectionText text = ConnectionText::Parse(connectionText);
  if (!EqualsNoCase(text.Get("Provider"), "SQLite")) {
    Fail("رشته اتصال، پايگاه دادة توكار را نشان نمي دهد: " + LeftToRight(text.WithoutPassword()),
         SQLITE_CANTOPEN);
  }
  std::string file = text.Get("Data Source");
  if (file.empty()) Fail("رشته اتصال، پروندة پايگاه داده (Data Source) را نام نمي برد.", SQLITE_CANTOPEN);
  return file;
}

void CheckIsFile(const std::string& file) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(PathOf(file), error);
  if (status.type() == std::filesystem::file_type::not_found) {
    Fail("پروندة پايگاه داده پيدا نشد: " + LeftToRight(file), SQLITE_CANTOPEN);
  }
  if (std::filesystem::is_directory(status)) {
    Fail("به جاي پروندة پايگاه داده، پوشه اي به اين نام هست: " + LeftToRight(file), SQLITE_CANTOPEN_ISDIR);
  }
}

/// Throws what a failure of the first read means for the user.
[[noreturn]] void FailToRead(const DatabaseError& failure, const std::string& file) {
  const std::string reason = "\n" + failure.ServerText();
  switch (failure.Code() & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      Fail("اين پرونده پايگاه داده نيست يا آسيب ديده است: " + LeftToRight(file) + reason, failure.Code());
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      Fail("پروندة پايگاه داده در دست برنامة ديگري است و قفل شده است: " + LeftToRight(file) + reason,
           failure.Code());
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_AUTH:
      Fail("اجازة خواندن و نوشتن پروندة پايگاه داده داده نشده است: " + LeftToRight(file) + reason,
           failure.Code());
    default:
      Fail("پروندة پايگاه داده خوانده نشد: " + LeftToRight(file) + reason, failure.Code());
  }
}

void CheckIsOurs(SqliteConnection& connection, const std::string& file) {
  if (connection.IsReadOnly()) {
    Fail("اجازة نوشتن پروندة پايگاه داده داده نشده است: " + LeftToRight(file), SQLITE_READONLY);
  }
  if (connection.Number("PRAGMA application_id") != kApplicationId) {
    Fail("اين پرونده، پايگاه دادة اين سيستم نيست: " + LeftToRight(file), SQLITE_NOTADB);
  }
  const std::int64_t version = connection.Number("PRAGMA user_version");
  if (version == kSchemaVersion) return;
  const std::string versions =
      " (نسخة پرونده " + std::to_string(version) + "، نسخة برنامه " + std::to_string(kSchemaVersion) + ")";
  Fail((version < kSchemaVersion ? "پروندة پايگاه داده از نسخة قديمي تر است: "
                                 : "پروندة پايگاه داده از نسخة جديدتر است: ") +
           LeftToRight(file) + versions,
       SQLITE_SCHEMA);
}

/// Opens the file and reads its schema, so that a file that is no database fails here.
SqliteConnection OpenFile(const std::string& file, std::chrono::milliseconds busyTimeout) {
  try {
    SqliteConnection connection(file, SqliteConnection::Mode::Existing, busyTimeout);
    connection.Number("select count(*) from sqlite_schema");
    return connection;
  } catch (const DatabaseError& failure) {
    FailToRead(failure, file);
  }
}

}  // namespace

std::unique_ptr<Database> SqliteConnector::Connect(const std::string& connectionText) {
  const std::string file = FileNamed(connectionText);
  CheckIsFile(file);
  SqliteConnection connection = OpenFile(file, busyTimeout_);
  CheckIsOurs(connection, file);
  return std::make_unique<SqliteDatabase>(std::move(connection));
}

std::string EmbeddedConnectionText(const std::string& file) {
  return "Provider=SQLite;Data Source=" + QuotedForConnection(file);
}

}  // namespace koru
