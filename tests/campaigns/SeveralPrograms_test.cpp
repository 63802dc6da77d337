// Two and three programs work on one file. In processes of their own they run as the machine lets them: a
// seed repeats what each does, not when. In one process their steps take turns, and a seed repeats all of it.

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <random>
#include <sstream>
#include <stdexcept>

#include "tests/campaigns/Child.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Seeds.h"

namespace koru::test {
namespace {

constexpr int kStepsOfProgram = 12;
constexpr int kStepsOfRound = 30;

class SeveralPrograms : public testing::Test {
 protected:
  void RunInProcesses(unsigned seed);
  /// `shared`: the stations work on the same countings.
  void TakeTurns(unsigned seed, bool shared);

  Store store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
};

/// What one program does to its own countings, 2 by 2 of the temporary ones, and to those that it makes.
/// Reports what each of them holds at the end: `id state lines`.
void WorkOnOwn(const std::string& file, unsigned seed, int program, const Child::Report& report) {
  std::mt19937 random(seed * 3 + static_cast<unsigned>(program));
  Station station(file);
  std::map<int, Outcome> own;
  std::vector<int> open{1 + 2 * program, 2 + 2 * program};
  for (int step = 0; step < kStepsOfProgram; ++step) {
    constexpr Work kWork[] = {Work::Save,     Work::Save,        Work::SaveNew,
                              Work::Register, Work::RegisterNew, Work::Delete};
    const Work work = kWork[random() % std::size(kWork)];
    const bool isNew = work == Work::SaveNew || work == Work::RegisterNew;
    const std::size_t which = random() % 8;
    if (!isNew && which >= open.size()) continue;
    const int id = isNew ? 0 : open[which];
    Outcome outcome = station.Do(work, id, 100 * (program + 1) + step);
    if (!outcome.done)
      throw std::runtime_error("not done: " + NameOf(work) + " " +
                               (outcome.messages.empty() ? "" : outcome.messages[0]));
    const int key = isNew ? outcome.id : id;
    if (work == Work::SaveNew) open.push_back(key);
    if (!isNew && work != Work::Save) open.erase(open.begin() + static_cast<std::ptrdiff_t>(which));
    own[key] = work == Work::Delete ? Outcome{} : outcome;
  }
  for (const auto& [id, outcome] : own) {
    const std::string state = outcome.id == 0 ? "deleted" : outcome.code.empty() ? "temporary" : "final";
    report(std::to_string(id) + " " + state + " " + (outcome.lines.empty() ? "-" : outcome.lines) + "\n");
  }
}

void ExpectHolds(const std::string& file, const std::string& reported) {
  const auto stored = StoredCountings(file);
  std::istringstream rows(reported);
  int id = 0;
  for (std::string state, lines; rows >> id >> state >> lines;) {
    const auto found = stored.find(id);
    ASSERT_EQ(found == stored.end(), state == "deleted") << "counting " << id;
    if (found == stored.end()) continue;
    EXPECT_EQ(found->second.lines, lines) << "counting " << id;
    EXPECT_EQ(found->second.code.empty(), state == "temporary") << "counting " << id;
    if (state == "final") {
      EXPECT_EQ(DocumentViolations(file, id), std::vector<std::string>{});
    }
  }
}

void SeveralPrograms::RunInProcesses(unsigned seed) {
  store_.CopyTo(file_);
  std::vector<std::unique_ptr<Child>> programs;
  for (int program = 0; program < 2 + static_cast<int>(seed % 2); ++program) {
    programs.push_back(std::make_unique<Child>(
        [&, program](const Child::Report& report) { WorkOnOwn(file_, seed, program, report); }));
  }
  std::string reported;
  for (const auto& program : programs) reported += program->Wait();
  for (const auto& program : programs) EXPECT_TRUE(program->EndedWell());
  EXPECT_EQ(Violations(file_), std::vector<std::string>{});
  ExpectHolds(file_, reported);
}

TEST_F(SeveralPrograms, In_processes_of_their_own_keep_what_each_reported_of_its_own_countings) {
  RunSeeds(12, [&](unsigned seed) { RunInProcesses(seed); });
}

/// A station with what its user has seen: the counting that is open, and how often it had been written by
/// then.
struct Turn {
  std::unique_ptr<Station> station;
  int open = 0;
  int seen = 0;
};

void SeveralPrograms::TakeTurns(unsigned seed, bool shared) {
  std::mt19937 random(seed);
  store_.CopyTo(file_);
  std::vector<Turn> turns(2 + seed % 2);
  for (Turn& turn : turns) turn.station = std::make_unique<Station>(file_);
  std::map<int, int> written;           // how often each counting was reported as written
  std::map<int, std::string> reported;  // the lines that were reported last
  for (int id = 1; id <= kLastStored; ++id) written[id] = 1;
  std::string log;
  for (int step = 0; step < kStepsOfRound && !HasFailure(); ++step) {
    const std::size_t who = random() % turns.size();
    Turn& turn = turns[who];
    const Work work = static_cast<Work>(random() % kWorks);
    const bool isNew = work == Work::SaveNew || work == Work::RegisterNew;
    constexpr int kShared[] = {1, 2, kFirstFinal, kLastStored};
    const int chosen = shared ? kShared[random() % std::size(kShared)]
                              : 1 + static_cast<int>(random() % static_cast<unsigned>(kLastStored));
    // Of different countings each station has its own, and looks at it right before it works on it.
    const bool looks = !shared || random() % 3 == 0 || turn.open == 0;
    if (!shared && chosen % static_cast<int>(turns.size()) != static_cast<int>(who)) continue;
    if (looks || isNew) {
      if (!turn.station->Open(isNew ? 0 : chosen)) {
        turn.open = 0;
        continue;
      }
      turn.open = isNew ? 0 : chosen;
      turn.seen = written[turn.open];
      if (shared && !isNew && random() % 2 == 0) continue;  // looks, and works on it later
    }
    log += "station " + std::to_string(who) + ": " + NameOf(work) + " " + std::to_string(turn.open) + "; ";
    SCOPED_TRACE(log);
    const Outcome outcome = turn.station->Perform(work, 10 * step);
    EXPECT_EQ(Violations(file_), std::vector<std::string>{});
    if (!outcome.done) continue;
    EXPECT_TRUE(isNew || outcome.asked || turn.seen == written[turn.open])
        << "another station's figures were written over without a question";
    const int id = work == Work::Delete ? turn.open : outcome.id;
    reported[id] = work == Work::Delete ? std::string() : outcome.lines;
    turn.open = work == Work::Delete ? 0 : id;
    turn.seen = ++written[id];
    const auto stored = StoredCountings(file_);
    for (const auto& [counting, lines] : reported) {
      const auto found = stored.find(counting);
      EXPECT_EQ(found == stored.end() ? std::string() : found->second.lines, lines)
          << "counting " << counting;
    }
  }
}

TEST_F(SeveralPrograms, In_turns_on_different_countings_keep_numbers_lines_and_documents_at_every_moment) {
  RunSeeds(20, [&](unsigned seed) { TakeTurns(seed, false); });
}

TEST_F(SeveralPrograms, In_turns_on_the_same_countings_write_nothing_over_without_a_question) {
  RunSeeds(200, [&](unsigned seed) { TakeTurns(seed, true); });
}

}  // namespace
}  // namespace koru::test
