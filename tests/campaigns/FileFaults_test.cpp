// The file system fails, or power is cut, at every call that a command makes.

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <random>

#include "adapters/sqlite/SqliteConnection.h"
#include "tests/campaigns/FaultyFiles.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Setting.h"

namespace koru::test {
namespace {

constexpr int kMark = 50;

class FileFaults : public testing::TestWithParam<Work> {
 protected:
  static void SetUpTestSuite() { store_ = std::make_unique<Store>(); }
  static void TearDownTestSuite() { store_.reset(); }

  /// Does the work with the n-th call going wrong. Answers the calls that were made.
  long Round(FaultyFiles::Fault fault, long n, FaultyFiles& files, Outcome& outcome) {
    store_->CopyTo(file_);
    Station station(file_);
    const bool isNew = CountingOf(GetParam()) == 0;
    if (!station.Open(CountingOf(GetParam())) && !isNew) ADD_FAILURE() << "cannot be opened";
    files.Arrange(fault, n);
    outcome = station.Perform(GetParam(), kMark);
    const long calls = files.Calls();
    if (fault == FaultyFiles::Fault::Once) files.Arrange(FaultyFiles::Fault::None, 0);
    return calls;
  }
  [[nodiscard]] long CallsWithoutFault() {
    FaultyFiles files;
    Outcome outcome;
    const long calls = Round(FaultyFiles::Fault::None, 0, files, outcome);
    EXPECT_TRUE(outcome.done);
    return calls;
  }

  /// The changes may be on the disk: the message does not say that nothing was done, and a counting that was
  /// being entered still is.
  static void ExpectReportedAsUncertain(const Outcome& outcome) {
    ASSERT_FALSE(outcome.messages.empty());
    const std::string& message = outcome.messages.back();
    EXPECT_NE(message.find("روشن نيست"), std::string::npos) << message;
    EXPECT_EQ(message.find("انجام نشد"), std::string::npos) << message;
    if (!outcome.entered) return;
    EXPECT_TRUE(outcome.entering);
    EXPECT_NE(message.find("هنوز روي فرم است"), std::string::npos) << message;
  }

  static std::unique_ptr<Store> store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
  const std::map<int, StoredCounting> before_ = StoredCountings(store_->File());
};
std::unique_ptr<Store> FileFaults::store_;

class RolledBack : public testing::Test {
 protected:
  Store store;
  TemporaryFolder folder;
  std::string file = folder.File("work.koru");
  const std::map<int, StoredCounting> before = StoredCountings(store.File());
};

TEST_P(FileFaults, A_call_that_fails_loses_nothing_that_was_reported_and_leaves_nothing_in_halves) {
  const long calls = CallsWithoutFault();
  std::cout << calls << " calls\n";
  int failed = 0;
  int uncertain = 0;
  for (long n = 1; n <= calls && !HasFailure(); ++n) {
    SCOPED_TRACE("the call that fails: " + std::to_string(n));
    Outcome outcome;
    bool isUncertain = false;
    {
      FaultyFiles files;
      Round(FaultyFiles::Fault::Once, n, files, outcome);
      isUncertain = files.HasFailedSync() && !outcome.done;
    }
    if (isUncertain) ExpectReportedAsUncertain(outcome);
    uncertain += isUncertain ? 1 : 0;
    EXPECT_TRUE(outcome.done || !outcome.messages.empty()) << "what was not done is not reported";
    ExpectKept(file_, GetParam(), outcome, before_);
    ExpectStillEntered(file_, GetParam(), outcome, before_);
    failed += outcome.done ? 0 : 1;
  }
  EXPECT_GT(failed, 0) << "no fault was noticed";
  EXPECT_GT(uncertain, 0) << "no command failed at its last step";
}

TEST_P(FileFaults, A_power_cut_loses_nothing_that_was_reported_and_leaves_nothing_in_halves) {
  const CampaignSetting setting;
  const long calls = CallsWithoutFault();
  std::cout << calls << " calls, seeds from " << setting.seed << "\n";
  int done = 0;
  for (long n = 1; n <= calls + 1 && !HasFailure(); ++n) {
    Outcome outcome;
    FaultyFiles files;
    Round(FaultyFiles::Fault::PowerCut, n, files, outcome);
    files.Arrange(FaultyFiles::Fault::None, 0);
    done += outcome.done ? 1 : 0;
    for (unsigned seed = setting.seed; seed < setting.seed + 2 * setting.times && !HasFailure(); ++seed) {
      SCOPED_TRACE("power cut at call " + std::to_string(n) + ", disk of seed " + std::to_string(seed));
      std::mt19937 random(seed);
      const TemporaryFolder disk;
      files.WriteDisk(disk.Path(), random);
      ExpectKept(disk.File("work.koru"), GetParam(), outcome, before_);
    }
  }
  EXPECT_GE(done, 1) << "the cut after the last call is one after the report";
}

TEST_F(RolledBack,
       A_save_that_the_database_gives_up_in_the_middle_leaves_nothing_and_is_still_being_entered) {
  for (const Work work : {Work::Save, Work::SaveNew, Work::Register, Work::RegisterNew}) {
    for (int line = 1; line <= 4; ++line) {
      SCOPED_TRACE(NameOf(work) + ", given up at line " + std::to_string(line));
      store.CopyTo(file);
      SqliteConnection(file, SqliteConnection::Mode::Existing, std::chrono::seconds(0))
          .Execute("create trigger GivesUp before insert on tblInventoryCountingDetail when new.RowNumber=" +
                   std::to_string(line) + " begin select raise(rollback, 'disk I/O error'); end");
      const Outcome outcome = Station(file).Do(work, CountingOf(work), kMark);
      EXPECT_FALSE(outcome.done);
      ExpectKept(file, work, outcome, before);
      ExpectStillEntered(file, work, outcome, before);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Of, FileFaults,
                         testing::Values(Work::Save, Work::SaveNew, Work::Register, Work::RegisterNew,
                                         Work::Return, Work::Delete),
                         [](const auto& info) { return NameOf(info.param); });

}  // namespace
}  // namespace koru::test
