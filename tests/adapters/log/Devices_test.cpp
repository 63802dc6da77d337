// Logs that are no ordinary files, as POSIX systems have them.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <memory>
#include <string>

#include "adapters/log/LogFile.h"
#include "adapters/log/LoggedConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "tests/support/TestFile.h"

namespace koru {
namespace {

constexpr const char* kFull = "koru: the log /dev/full is not written: No space left on device\n";

TEST(ALogOnAFullDisk, Is_reported_once_and_ends) {
  testing::internal::CaptureStderr();
  LogFile log({"/dev/full", false, "1"});
  EXPECT_FALSE(log.IsOn());
  log.Append(LogFile::Clock::now(), {}, "1", "done", "Select 1");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), kFull);
}

TEST(ALogOnAFullDisk, Fails_no_statement) {
  const test::TestFile file;
  testing::internal::CaptureStderr();
  LoggedConnector connector(std::make_unique<SqliteConnector>(), {"/dev/full", false, "1"});
  EXPECT_EQ(connector.Connect(file.ConnectionText())->Open(SqlText("select * from tblUser")).RecordCount(),
            0U);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), kFull);
}

TEST(ALog, Is_no_pipe_on_which_the_program_would_wait) {
  const test::TemporaryFolder folder;
  const std::string pipe = folder.File("koru.log");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(LogFile({pipe, false, "1"}).IsOn());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "koru: the log " + pipe + " is not written: not a file\n");
}

}  // namespace
}  // namespace koru
