// Two programs, each a process of its own, save, register, return and delete the same countings and their own
// new ones at the same time, as the machine lets them run. A third one looks at the file meanwhile, as often
// as it can.

#include <gtest/gtest.h>

#include <iostream>
#include <iterator>
#include <random>
#include <set>
#include <sstream>

#include "tests/campaigns/Child.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Seeds.h"

namespace koru::test {
namespace {

constexpr unsigned kRounds = 20;
constexpr int kSteps = 14;
constexpr int kShared[] = {1, 2, kFirstFinal, kLastStored};

/// Works on the shared countings, sometimes long after it has looked at them. Reports each command that was
/// done without a question, as `counting, lines before, lines after`: every save writes figures of its own.
void WorkOnShared(const std::string& file, unsigned seed, int program, const Child::Report& report) {
  std::mt19937 random(2 * seed + static_cast<unsigned>(program));
  Station station(file);
  int open = 0;
  for (int step = 0; step < kSteps; ++step) {
    const Work work = static_cast<Work>(random() % kWorks);
    const bool isNew = work == Work::SaveNew || work == Work::RegisterNew;
    if (isNew || open == 0 || random() % 3 == 0) {
      open = isNew ? 0 : kShared[random() % std::size(kShared)];
      if (!station.Open(open)) {
        open = 0;
        continue;
      }
    }
    const Outcome outcome = station.Perform(work, 1000 * (program + 1) + 20 * step);
    const int id = isNew ? outcome.id : open;
    open = outcome.done && work != Work::Delete ? id : 0;
    if (!outcome.done || work == Work::Return) continue;
    report(std::to_string(id) + " " + (isNew || outcome.base.empty() ? "none" : outcome.base) + " " +
           (work == Work::Delete ? "none" : outcome.lines) + "\n");
  }
}

/// What the programs reported of one counting.
struct History {
  std::multiset<std::string> bases;
  std::set<std::string> written;
};

class TwoPrograms : public testing::Test {
 protected:
  void Round(unsigned seed);
  void ExpectNothingLost(const std::string& reported);

  Store store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
  const std::map<int, StoredCounting> before_ = StoredCountings(store_.File());
  unsigned looks_ = 0;
  unsigned commands_ = 0;
};

/// Figures that were reported as stored are what the next command without a question began with, or are
/// stored now: two commands that began with the same figures would be one that wrote over the other.
void TwoPrograms::ExpectNothingLost(const std::string& reported) {
  std::map<int, History> histories;
  for (const auto& [id, counting] : before_) histories[id].written.insert(counting.lines);
  std::istringstream rows(reported);
  int id = 0;
  for (std::string base, lines; rows >> id >> base >> lines; ++commands_) {
    EXPECT_EQ(histories[id].bases.count(base), 0U)
        << "counting " << id << ": two commands began with " << base << " and none asked";
    histories[id].bases.insert(base);
    histories[id].written.insert(lines);
  }
  const auto stored = StoredCountings(file_);
  for (const auto& [counting, history] : histories) {
    const auto found = stored.find(counting);
    const std::string now = found == stored.end() ? "none" : found->second.lines;
    for (const std::string& lines : history.written) {
      EXPECT_EQ(history.bases.count(lines) == 0 || lines == "none", lines == now)
          << "counting " << counting << ": " << lines << " was reported as stored, and " << now << " is";
    }
    EXPECT_EQ(history.written.count(now), 1U)
        << "counting " << counting << " holds what nobody reported: " << now;
  }
}

void TwoPrograms::Round(unsigned seed) {
  store_.CopyTo(file_);
  const auto work = [&](int program) {
    return [&, program](const Child::Report& report) { WorkOnShared(file_, seed, program, report); };
  };
  Child first(work(0));
  Child second(work(1));
  while (!HasFailure() && !(first.HasEnded() && second.HasEnded())) {
    EXPECT_EQ(Violations(file_), std::vector<std::string>{});
    ++looks_;
  }
  const std::string reported = first.Wait() + second.Wait();
  EXPECT_TRUE(first.EndedWell() && second.EndedWell());
  EXPECT_EQ(Violations(file_), std::vector<std::string>{});
  for (const auto& [id, counting] : StoredCountings(file_)) {
    if (counting.code.empty()) continue;
    EXPECT_EQ(DocumentViolations(file_, id), std::vector<std::string>{});
  }
  ExpectNothingLost(reported);
}

TEST_F(TwoPrograms, On_the_same_countings_lose_no_figures_and_keep_all_rules_at_every_moment) {
  const unsigned rounds = RunSeeds(kRounds, [&](unsigned seed) { Round(seed); });
  std::cout << commands_ << " commands done, " << looks_ << " looks meanwhile\n";
  EXPECT_GT(commands_, rounds) << "hardly anything was done";
}

}  // namespace
}  // namespace koru::test
