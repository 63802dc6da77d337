#include "adapters/sqlite/AddedIndexes.h"

#include <exception>
#include <string>

namespace koru {
namespace {

constexpr std::string_view kCount =
    "select count(*) from sqlite_schema where type = 'index' and name in ('ixInventoryReceiptDetail_Rate', "
    "'ixInventoryDispatchDetail_Rate')";
constexpr std::int64_t kAll = 2;

/// Makes statements fail at once where another connection has the lock, until destruction.
class NoWaiting {
 public:
  explicit NoWaiting(SqliteConnection& connection)
      : connection_(connection), milliseconds_(connection.Number("PRAGMA busy_timeout")) {
    connection_.Execute("PRAGMA busy_timeout=0");
  }
  NoWaiting(const NoWaiting&) = delete;
  NoWaiting& operator=(const NoWaiting&) = delete;
  ~NoWaiting() {
    try {
      connection_.Execute("PRAGMA busy_timeout=" + std::to_string(milliseconds_));
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the pragma takes no lock
    }
  }

 private:
  SqliteConnection& connection_;
  std::int64_t milliseconds_;
};

void Add(SqliteConnection& connection) {
  const NoWaiting noWaiting(connection);
  connection.Execute("BEGIN IMMEDIATE");
  try {
    connection.Execute(std::string(kAddedIndexes) + "COMMIT");
  } catch (const std::exception&) {
    if (connection.InTransaction()) connection.Execute("ROLLBACK");
  }
}

}  // namespace

void AddMissingIndexes(SqliteConnection& connection) noexcept {
  try {
    if (connection.Number(kCount) < kAll) Add(connection);
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): an index changes no result
  }
}

}  // namespace koru
