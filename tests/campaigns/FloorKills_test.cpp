// A program that takes figures from the floor is killed at any instant: while it enters, writes its journal,
// answers or saves.

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <random>
#include <sstream>

#include "adapters/system/FloorJournalFiles.h"
#include "tests/campaigns/Child.h"
#include "tests/campaigns/FloorDesk.h"
#include "tests/campaigns/Seeds.h"
#include "tests/campaigns/Store.h"

namespace koru::test {
namespace {

constexpr unsigned kRounds = 50;
constexpr std::int64_t kFigures = 20'000;
constexpr long kMaxNanoseconds = 60'000'000;

class FloorKills : public testing::Test {
 protected:
  void Live(unsigned seed, const Child::Report& report);
  bool Round(unsigned seed);

  Store store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
  FloorJournalFiles journals_{folder_.Path() / "floor"};
  double before_ = 0;
  std::int64_t acknowledged_ = 0;
};

void FloorKills::Live(unsigned seed, const Child::Report& report) {
  std::mt19937 random(seed);
  FloorDesk desk(file_, journals_);
  report("0\n");
  KillAfter(static_cast<long>(random() % kMaxNanoseconds));
  for (std::int64_t sent = 0; sent < kFigures;) {
    const std::int64_t last = sent + 1 + static_cast<std::int64_t>(random() % 5);
    if (!desk.Send(sent + 1, last)) throw std::runtime_error("not stored");
    report(std::to_string(last) + "\n");
    sent = last;
    if (random() % 15 == 0) desk.Save();
  }
}

bool FloorKills::Round(unsigned seed) {
  store_.CopyTo(file_);
  std::filesystem::remove_all(folder_.Path() / "floor");
  {
    FloorDesk desk(file_, journals_);
    before_ = desk.Sum();
  }
  std::filesystem::remove_all(folder_.Path() / "floor");
  Child child([&](const Child::Report& report) { Live(seed, report); });
  std::istringstream reports(child.Wait());
  std::int64_t acknowledged = 0;
  for (std::int64_t last = 0; reports >> last;) acknowledged = last;
  EXPECT_TRUE(child.WasKilled() || child.EndedWell());
  acknowledged_ += acknowledged;

  FloorDesk desk(file_, journals_);
  if (!desk.Session().Left().Cells().empty()) {
    const ReplayedFigures replayed = desk.Session().Replay();
    EXPECT_TRUE(replayed.gone.empty() && replayed.replaced.empty() && replayed.refused.empty());
  }
  const double kept = desk.Sum() - before_;
  EXPECT_GE(kept, static_cast<double>(acknowledged)) << "acknowledged and missing";
  EXPECT_LE(kept, static_cast<double>(acknowledged + 5)) << "more than was sent";
  EXPECT_TRUE(desk.Send(1, acknowledged + 5)) << "the device sends everything once more";
  EXPECT_EQ(desk.Sum() - before_, static_cast<double>(acknowledged + 5));
  EXPECT_TRUE(Violations(file_).empty());
  return child.WasKilled();
}

TEST_F(FloorKills, Lose_nothing_that_was_acknowledged_and_apply_nothing_twice) {
  unsigned killed = 0;
  const unsigned rounds = RunSeeds(kRounds, [&](unsigned seed) { killed += Round(seed) ? 1 : 0; });
  std::cout << killed << " kills, " << acknowledged_ << " figures acknowledged\n";
  EXPECT_GT(killed, rounds / 2) << "most kills come too late";
  EXPECT_GT(acknowledged_, rounds) << "hardly a figure was acknowledged";
}

}  // namespace
}  // namespace koru::test
