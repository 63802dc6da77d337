#include "adapters/odbc/OdbcDiagnostics.h"

#include <gtest/gtest.h>

namespace koru {
namespace {

TEST(OdbcDiagnostics, The_servers_own_message_is_chosen) {
  EXPECT_EQ(MostUseful({{"08001", 0, "could not connect"}, {"42000", 18456, "login failed"}}).text,
            "login failed");
  EXPECT_EQ(MostUseful({{"42000", 18456, "login failed"}, {"08001", 0, "could not connect"}}).text,
            "login failed");
  EXPECT_EQ(MostUseful({{"01000", 5701, "changed database"}, {"23000", 2627, "duplicate"}}).text,
            "duplicate");
}

TEST(OdbcDiagnostics, The_drivers_reason_comes_before_could_not_connect) {
  EXPECT_EQ(MostUseful({{"HYT00", 0, "timeout"}, {"08001", 0, "could not connect"}}).text, "timeout");
  EXPECT_EQ(MostUseful({{"08001", 0, "could not connect"}, {"01000", 20017, "end of file"}}).text,
            "could not connect");
}

TEST(OdbcDiagnostics, Nothing_reported_is_an_empty_record) { EXPECT_EQ(MostUseful({}).text, ""); }

TEST(OdbcDiagnostics, A_record_is_described_with_its_state_and_number) {
  EXPECT_EQ(Described({"23000", 2627, "[FreeTDS][SQL Server]duplicate"}),
            "[FreeTDS][SQL Server]duplicate (23000, 2627)");
}

TEST(OdbcDiagnostics, The_cause_is_that_of_the_servers_number_or_of_the_state) {
  EXPECT_EQ(CauseOf({"08S01", 0, "link failure"}), DatabaseCause::Away);
  EXPECT_EQ(CauseOf({"42000", 9002, "the log is full"}), DatabaseCause::DiskFull);
  EXPECT_EQ(CauseOf({"40001", 1205, "deadlock"}), DatabaseCause::Locked);
  EXPECT_EQ(CauseOf({"42000", 3906, "read-only"}), DatabaseCause::ReadOnly);
  EXPECT_EQ(CauseOf({"HY000", 823, "the disk failed"}), DatabaseCause::InputOutput);
  EXPECT_EQ(CauseOf({"23000", 2627, "duplicate"}), DatabaseCause::Other);
}

}  // namespace
}  // namespace koru
