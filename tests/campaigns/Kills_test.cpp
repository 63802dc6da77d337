// A program is killed at a random moment of a save, a registration, a return or a deletion. The moment is a
// call of the file system, so that a seed kills at the same place again; of a write, half is done.

#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "tests/campaigns/Child.h"
#include "tests/campaigns/FaultyFiles.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Seeds.h"

namespace koru::test {
namespace {

constexpr unsigned kRounds = 120;
constexpr int kMark = 50;
constexpr long kMaxCalls = 90;  ///< opening included; a kill that comes later never comes

class Kills : public testing::Test {
 protected:
  /// One round; answers whether the program was killed in it.
  bool Round(unsigned seed);

  Store store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
  const std::map<int, StoredCounting> before_ = StoredCountings(store_.File());
};

bool Kills::Round(unsigned seed) {
  std::mt19937 random(seed);
  const Work work = static_cast<Work>(random() % kWorks);
  const long moment = 1 + static_cast<long>(random() % kMaxCalls);
  SCOPED_TRACE(NameOf(work) + " killed at call " + std::to_string(moment));
  store_.CopyTo(file_);
  Child child([&](const Child::Report& report) {
    FaultyFiles files;
    Station station(file_);
    files.Arrange(FaultyFiles::Fault::Kill, moment);
    report(Written(station.Do(work, CountingOf(work), kMark)));
    files.Arrange(FaultyFiles::Fault::None, 0);
  });
  Outcome outcome = ReadOutcome(child.Wait());
  EXPECT_TRUE(child.WasKilled() || (child.EndedWell() && outcome.done));
  if (outcome.lines.empty()) outcome.lines = LinesOf(work, kMark);
  ExpectKept(file_, work, outcome, before_);
  return child.WasKilled();
}

TEST_F(Kills, Lose_nothing_that_was_reported_and_leave_nothing_in_halves) {
  unsigned killed = 0;
  const unsigned rounds = RunSeeds(kRounds, [&](unsigned seed) { killed += Round(seed) ? 1 : 0; });
  std::cout << killed << " kills\n";
  EXPECT_GT(killed, rounds / 4) << "most kills come too late";
}

}  // namespace
}  // namespace koru::test
