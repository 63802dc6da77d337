// A program is killed at a random moment of a save, a registration, a return or a deletion. The moment is a
// call of the file system, so that a seed kills at the same place again; of a write, half is done.

#include <gtest/gtest.h>

#include <iostream>
#include <random>
#include <sstream>

#include "tests/campaigns/Child.h"
#include "tests/campaigns/FaultyFiles.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Setting.h"

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

/// What the program reports of itself: the outcome, when there was one.
std::string Written(const Outcome& outcome) {
  return (outcome.done ? "done " : "failed ") + std::to_string(outcome.id) + " " +
         (outcome.code.empty() ? "-" : outcome.code) + " " + outcome.lines + "\n";
}
Outcome ReadOutcome(const std::string& text) {
  Outcome outcome;
  std::istringstream words(text);
  std::string word;
  words >> word >> outcome.id >> outcome.code >> outcome.lines;
  outcome.done = word == "done";
  if (outcome.code == "-") outcome.code.clear();
  return outcome;
}

/// The lines that the work writes, known before it is reported.
std::string LinesOf(Work work) {
  const bool isNew = work == Work::SaveNew || work == Work::RegisterNew;
  std::string lines;
  for (int line = 1; line <= (isNew ? 4 : 6); ++line) {
    lines += "G" + std::to_string(line) + "=" + std::to_string(kMark + line) + ";";
  }
  return lines;
}

bool Kills::Round(unsigned seed) {
  std::mt19937 random(seed);
  const Work work = static_cast<Work>(random() % kWorks);
  const long moment = 1 + static_cast<long>(random() % kMaxCalls);
  SCOPED_TRACE("seed " + std::to_string(seed) + ": " + NameOf(work) + " killed at call " +
               std::to_string(moment));
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
  if (outcome.lines.empty()) outcome.lines = LinesOf(work);
  ExpectKept(file_, work, outcome, before_);
  return child.WasKilled();
}

TEST_F(Kills, Lose_nothing_that_was_reported_and_leave_nothing_in_halves) {
  const CampaignSetting setting;
  const unsigned rounds = kRounds * setting.times;
  std::cout << "seeds " << setting.seed << " to " << setting.seed + rounds - 1 << "\n";
  unsigned killed = 0;
  for (unsigned seed = setting.seed; seed < setting.seed + rounds && !HasFailure(); ++seed)
    killed += Round(seed) ? 1 : 0;
  std::cout << killed << " kills\n";
  EXPECT_GT(killed, rounds / 4) << "most kills come too late";
}

}  // namespace
}  // namespace koru::test
