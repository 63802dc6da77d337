#include "adapters/sqlite/BackUp.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <system_error>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "adapters/sqlite/WorkingFile.h"
#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"
#include "platform/text/FilePath.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

namespace fs = std::filesystem;

constexpr int kPagesPerStep = 256;      // 1 MB with the usual pages
constexpr int kChecksPerCall = 20'000;  // operations of SQLite's virtual machine
constexpr int kPercentCopied = 80;      // the check takes the rest
constexpr int kWaitForWriter = 20;      // ms

[[noreturn]] void Fail(const std::string& to, const std::string& reason) {
  throw InputError("پشتيبان گرفته نشد: " + LeftToRight(to) + " (" + reason + ")");
}

/// A log beside the file belongs to a program that has it open, or was killed: the copy must not inherit it.
void RefuseTarget(const std::string& from, const fs::path& target, const std::string& to) {
  std::error_code error;
  if (fs::equivalent(PathOf(from), target, error)) Fail(to, "اين همان پروندة پايگاه داده است");
  for (const char* suffix : {"-wal", "-journal"}) {
    fs::path companion = target;
    if (fs::exists(companion += suffix, error)) Fail(to, "برنامه\u200cاي اين پرونده را باز دارد");
  }
}

struct Finish {
  void operator()(sqlite3_backup* backup) const noexcept { sqlite3_backup_finish(backup); }
};

/// False when cancelled.
bool CopyPages(const SqliteConnection& source, const SqliteConnection& copy, const BackupProgress& progress) {
  const std::unique_ptr<sqlite3_backup, Finish> backup(
      sqlite3_backup_init(copy.Handle(), "main", source.Handle(), "main"));
  if (!backup) throw DatabaseError(sqlite3_errmsg(copy.Handle()), sqlite3_errcode(copy.Handle()), {});
  int shown = 0;
  while (true) {
    if (!progress(shown)) return false;
    const int result = sqlite3_backup_step(backup.get(), kPagesPerStep);
    if (result == SQLITE_DONE) return true;
    if (result == SQLITE_BUSY || result == SQLITE_LOCKED) {
      sqlite3_sleep(kWaitForWriter);
    } else if (result != SQLITE_OK) {
      throw DatabaseError(sqlite3_errstr(result), result, {});
    }
    const int all = std::max(1, sqlite3_backup_pagecount(backup.get()));
    const int copied = all - sqlite3_backup_remaining(backup.get());
    shown = std::max(shown, static_cast<int>(std::int64_t{kPercentCopied} * copied / all));
  }
}

/// RAII callback of a connection during a long statement.
class CancelCheck {
 public:
  CancelCheck(const SqliteConnection& connection, const BackupProgress& progress)
      : connection_(connection), progress_(progress) {
    sqlite3_progress_handler(connection.Handle(), kChecksPerCall, &CancelCheck::Call, this);
  }
  CancelCheck(const CancelCheck&) = delete;
  CancelCheck& operator=(const CancelCheck&) = delete;
  ~CancelCheck() { sqlite3_progress_handler(connection_.Handle(), 0, nullptr, nullptr); }

  [[nodiscard]] bool IsCancelled() const { return cancelled_; }

 private:
  static int Call(void* check) {
    auto& self = *static_cast<CancelCheck*>(check);
    self.cancelled_ = self.cancelled_ || !self.progress_(kPercentCopied);
    return self.cancelled_ ? 1 : 0;
  }

  const SqliteConnection& connection_;
  const BackupProgress& progress_;
  bool cancelled_ = false;
};

/// False when cancelled. Throws DatabaseError when the copy is not in order.
bool Check(const std::string& copy, const std::vector<std::string_view>& tables,
           const BackupProgress& progress) {
  SqliteConnector().Connect(EmbeddedConnectionText(copy)).reset();
  SqliteConnection connection(copy, SqliteConnection::Mode::Existing, std::chrono::seconds(0));
  for (const std::string_view table : tables)
    static_cast<void>(connection.Prepare("select 1 from " + std::string(table)));
  const CancelCheck cancel(connection, progress);
  try {
    SqliteStatement check = connection.Prepare("PRAGMA quick_check(1)");
    const std::string found = check.Step() ? std::string(check.Text(0)) : "no answer";
    if (found != "ok") throw DatabaseError(found, SQLITE_CORRUPT, {});
  } catch (const DatabaseError&) {
    if (!cancel.IsCancelled()) throw;
  }
  return !cancel.IsCancelled();
}

bool CopyAndCheck(const std::string& from, const std::string& copy,
                  const std::vector<std::string_view>& tables, const BackupProgress& progress) {
  {
    SqliteConnection source(from, SqliteConnection::Mode::Existing, SqliteConnector::kBusyTimeout);
    const SqliteConnection target(copy, SqliteConnection::Mode::Create, std::chrono::seconds(0));
    // Within one read transaction, what others write does not begin the copying anew.
    source.Execute("BEGIN");
    source.Number("select count(*) from sqlite_schema");
    if (!CopyPages(source, target, progress)) return false;
  }
  return Check(copy, tables, progress);
}

}  // namespace

BackupOutcome BackUp(const std::string& from, const std::string& to,
                     const std::vector<std::string_view>& tables, const BackupProgress& progress) {
  const fs::path target = PathOf(to);
  RefuseTarget(from, target, to);
  const WorkingFile working(target);
  try {
    if (!CopyAndCheck(from, TextOf(working.Path()), tables, progress)) return BackupOutcome::Cancelled;
  } catch (const DatabaseError& failure) {
    Fail(to, failure.ServerText());
  }
  std::error_code error;
  fs::rename(working.Path(), target, error);
  if (error) Fail(to, error.message());
  progress(100);
  return BackupOutcome::Done;
}

}  // namespace koru
