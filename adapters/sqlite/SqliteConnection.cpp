#include "adapters/sqlite/SqliteConnection.h"

#include <sqlite3.h>

#include <utility>

#include "adapters/sqlite/PersianFunctions.h"
#include "adapters/sqlite/RankedKeySet.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

int SizeOf(std::string_view text) { return static_cast<int>(text.size()); }

/// The parameters are table and column.
constexpr std::string_view kFindIntegerKey =
    "select 1 from (select count(*) as parts, max(name) as name, max(type) as type from "
    "pragma_table_info(?1) "
    "where pk > 0) where parts = 1 and name = ?2 collate nocase and type = 'INTEGER' collate nocase";

/// The last failure of a connection.
DatabaseError FailureOf(sqlite3* connection, std::string statement) {
  const int code = sqlite3_extended_errcode(connection);
  return {sqlite3_errmsg(connection), code, std::move(statement), CauseOf(code)};
}

}  // namespace

DatabaseCause CauseOf(int code) {
  switch (code & 0xFF) {
    case SQLITE_FULL:
      return DatabaseCause::DiskFull;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return DatabaseCause::Locked;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return code == SQLITE_READONLY_DBMOVED ? DatabaseCause::Other : DatabaseCause::ReadOnly;
    case SQLITE_IOERR:
      return DatabaseCause::InputOutput;
    default:
      return DatabaseCause::Other;
  }
}

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
  sqlite3_finalize(statement);
}

void SqliteStatement::Check(int result) const {
  if (result == SQLITE_OK) return;
  throw FailureOf(sqlite3_db_handle(statement_.get()), sqlite3_sql(statement_.get()));
}

void SqliteStatement::BindInteger(int parameter, std::int64_t number) {
  Check(sqlite3_bind_int64(statement_.get(), parameter, number));
}

void SqliteStatement::Bind(int parameter, double number) {
  Check(sqlite3_bind_double(statement_.get(), parameter, number));
}

void SqliteStatement::Bind(int parameter, std::string_view text) {
  // A null pointer would bind NULL, and an empty text is not NULL.
  const char* begin = text.empty() ? "" : text.data();
  Check(sqlite3_bind_text64(statement_.get(), parameter, begin, text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void SqliteStatement::Bind(int parameter, std::nullptr_t) {
  Check(sqlite3_bind_null(statement_.get(), parameter));
}

void SqliteStatement::BindPointer(int parameter, const void* object, const char* type) {
  // SQLite passes the pointer on unchanged, and the functions that take it only read.
  Check(sqlite3_bind_pointer(statement_.get(), parameter, const_cast<void*>(object), type, nullptr));
}

bool SqliteStatement::Step() {
  const int result = sqlite3_step(statement_.get());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE) Check(result);
  return false;
}

void SqliteStatement::Reset() noexcept { sqlite3_reset(statement_.get()); }

void SqliteStatement::Run() {
  Step();
  Reset();
}

bool SqliteStatement::IsReadOnly() const { return sqlite3_stmt_readonly(statement_.get()) != 0; }

std::int64_t SqliteStatement::ChangedRows() const {
  return sqlite3_changes64(sqlite3_db_handle(statement_.get()));
}

int SqliteStatement::ColumnCount() const { return sqlite3_column_count(statement_.get()); }

std::string SqliteStatement::ColumnName(int column) const {
  const char* name = sqlite3_column_name(statement_.get(), column);
  return name == nullptr ? std::string() : std::string(name);
}

int SqliteStatement::ColumnType(int column) const { return sqlite3_column_type(statement_.get(), column); }

bool SqliteStatement::IsNull(int column) const { return ColumnType(column) == SQLITE_NULL; }

std::int64_t SqliteStatement::Integer(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

double SqliteStatement::Real(int column) const { return sqlite3_column_double(statement_.get(), column); }

std::string_view SqliteStatement::Text(int column) const {
  const void* text = sqlite3_column_text(statement_.get(), column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
  return text == nullptr ? std::string_view() : std::string_view(static_cast<const char*>(text), size);
}

void SqliteConnection::Close::operator()(sqlite3* connection) const noexcept { sqlite3_close_v2(connection); }

SqliteConnection::SqliteConnection(const std::string& path, Mode mode,
                                   std::chrono::milliseconds busyTimeout) {
  const int flags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (mode == Mode::Create ? SQLITE_OPEN_CREATE : 0);
  sqlite3* opened = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
  connection_.reset(opened);
  if (opened == nullptr) throw DatabaseError(sqlite3_errstr(result), result, {});
  if (result != SQLITE_OK) Fail({});
  sqlite3_extended_result_codes(opened, 1);
  sqlite3_busy_timeout(opened, static_cast<int>(busyTimeout.count()));
  // A misspelt "name" is an error, not a text, and the schema of a foreign file cannot call harmful
  // functions.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  RegisterPersianFunctions(opened);
  RegisterKeyRank(opened);
}

void SqliteConnection::Fail(std::string_view statement) const {
  throw FailureOf(connection_.get(), std::string(statement));
}

void SqliteConnection::Execute(const std::string& sql) {
  if (sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sql);
}

SqliteStatement SqliteConnection::Prepare(std::string_view sql) {
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int result = sqlite3_prepare_v3(connection_.get(), sql.data(), SizeOf(sql), SQLITE_PREPARE_PERSISTENT,
                                        &prepared, &rest);
  SqliteStatement statement(prepared);
  if (result != SQLITE_OK) Fail(sql);
  const auto read = static_cast<std::size_t>(rest - sql.data());
  if (prepared == nullptr || sql.find_first_not_of(" \t\r\n;", read) != std::string_view::npos) {
    throw DatabaseError("not one statement", SQLITE_MISUSE, std::string(sql));
  }
  return statement;
}

std::int64_t SqliteConnection::Number(std::string_view sql) {
  SqliteStatement statement = Prepare(sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

bool SqliteConnection::InTransaction() const { return sqlite3_get_autocommit(connection_.get()) == 0; }

void SqliteConnection::ReleasePages() const { sqlite3_db_release_memory(connection_.get()); }

void SqliteConnection::Checkpoint() noexcept {
  // Whatever keeps it from copying now, a failing disk included, the log still holds everything.
  sqlite3_wal_checkpoint_v2(connection_.get(), "main", SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
}

std::string SqliteConnection::File() const { return sqlite3_db_filename(connection_.get(), "main"); }

bool SqliteConnection::HasMoved() const {
  int hasMoved = 0;
  sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  return hasMoved != 0;
}

std::string SqliteConnection::WriteAheadLog() {
  SqliteStatement mode = Prepare("PRAGMA journal_mode");
  const bool hasLog = mode.Step() && mode.Text(0) == "wal";
  return hasLog ? sqlite3_filename_wal(sqlite3_db_filename(connection_.get(), "main")) : std::string();
}

bool SqliteConnection::IsReadOnly() const { return sqlite3_db_readonly(connection_.get(), "main") == 1; }

bool SqliteConnection::HasColumn(const std::string& table, const std::string& column) const {
  return sqlite3_table_column_metadata(connection_.get(), nullptr, table.c_str(), column.c_str(), nullptr,
                                       nullptr, nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool SqliteConnection::IsIntegerColumn(const std::string& table, const std::string& column) const {
  const char* type = nullptr;
  const int found = sqlite3_table_column_metadata(connection_.get(), nullptr, table.c_str(), column.c_str(),
                                                  &type, nullptr, nullptr, nullptr, nullptr);
  return found == SQLITE_OK && type != nullptr && EqualsNoCase(type, "INTEGER");
}

bool SqliteConnection::IsIntegerKey(const std::string& table, const std::string& column) {
  SqliteStatement statement = Prepare(kFindIntegerKey);
  statement.Bind(1, table);
  statement.Bind(2, column);
  return statement.Step();
}

}  // namespace koru
