#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

/// Runs in a process of its own: replaces the lines of a counting in a batch, over and over, and writes to
/// the pipe when a save was reported as done (d) and when the next one is half way (h).
[[noreturn]] void SaveOverAndOver(const std::string& connectionText, int pipe) {
  SqliteConnector connector;
  const auto connection = connector.Connect(connectionText);
  for (int save = 1;; ++save) {
    const auto batch = connection->BeginWriteBatch();
    connection->Open(SqlText("delete tblInventoryCountingDetail where CountingID=1"));
    for (int row = 1; row <= 500; ++row) {
      connection->Open(
          SqlText("insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID) values "
                  "(1,'b',") +
          row + "," + save + ")");
      if (row == 250 && write(pipe, "h", 1) != 1) _exit(1);
    }
    batch->Finish();
    if (write(pipe, "d", 1) != 1) _exit(1);
  }
}

TEST(AKilledProgram, Leaves_all_lines_of_a_save_or_all_of_the_one_before) {
  test::TestFile database;
  for (const int saves : {1, 2, 5}) {
    database.Execute("delete from tblInventoryCountingDetail");
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t child = fork();
    if (child == 0) SaveOverAndOver(database.ConnectionText(), ends[1]);
    close(ends[1]);
    // Kill it half way through the save after the one that is waited for.
    for (int halves = 0; halves <= saves;) {
      char progress = 0;
      ASSERT_EQ(read(ends[0], &progress, 1), 1);
      if (progress == 'h') ++halves;
    }
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    close(ends[0]);
    EXPECT_EQ(database.Scalar("select count(*) from tblInventoryCountingDetail"), "500");
    EXPECT_EQ(database.Scalar("select count(distinct ScaleID) from tblInventoryCountingDetail"), "1");
    EXPECT_GE(std::stoi(database.Scalar("select max(ScaleID) from tblInventoryCountingDetail")), saves);
    EXPECT_EQ(database.Scalar("PRAGMA integrity_check"), "ok");
  }
}

}  // namespace
}  // namespace koru
