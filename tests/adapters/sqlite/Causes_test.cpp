#include <gtest/gtest.h>
#include <sqlite3.h>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/sql/DatabaseError.h"
#include "tests/support/TemporaryFolder.h"

namespace koru {
namespace {

using namespace std::chrono_literals;

/// The cause of what `action` fails with.
template <class Action>
DatabaseCause CauseOfFailure(const Action& action) {
  try {
    action();
  } catch (const DatabaseError& failure) {
    return failure.Cause();
  }
  ADD_FAILURE() << "no failure";
  return DatabaseCause::Other;
}

TEST(Causes, A_full_file_and_one_that_another_program_writes_to_are_distinguished) {
  const test::TemporaryFolder folder;
  const std::string file = folder.File("a.db");
  SqliteConnection connection(file, SqliteConnection::Mode::Create, 0ms);
  connection.Execute("create table t (x)");
  connection.Execute("pragma max_page_count = 3");
  EXPECT_EQ(CauseOfFailure([&] { connection.Execute("insert into t values (zeroblob(100000))"); }),
            DatabaseCause::DiskFull);
  SqliteConnection other(file, SqliteConnection::Mode::Existing, 0ms);
  other.Execute("begin immediate");
  EXPECT_EQ(CauseOfFailure([&] { connection.Execute("insert into t values (1)"); }), DatabaseCause::Locked);
  EXPECT_EQ(CauseOfFailure([&] { connection.Execute("select nothing"); }), DatabaseCause::Other);
  connection.Execute("pragma query_only = on");
  EXPECT_EQ(CauseOfFailure([&] { connection.Execute("insert into t values (1)"); }), DatabaseCause::ReadOnly);
}

TEST(Causes, An_extended_code_has_the_cause_of_its_primary_one) {
  EXPECT_EQ(CauseOf(SQLITE_IOERR_WRITE), DatabaseCause::InputOutput);
  EXPECT_EQ(CauseOf(SQLITE_IOERR_FSYNC), DatabaseCause::InputOutput);
  EXPECT_EQ(CauseOf(SQLITE_BUSY_SNAPSHOT), DatabaseCause::Locked);
  EXPECT_EQ(CauseOf(SQLITE_READONLY_DIRECTORY), DatabaseCause::ReadOnly);
  EXPECT_EQ(CauseOf(SQLITE_READONLY_DBMOVED), DatabaseCause::Other) << "it has a sentence of its own";
  EXPECT_EQ(CauseOf(SQLITE_CORRUPT), DatabaseCause::Other);
}

}  // namespace
}  // namespace koru
