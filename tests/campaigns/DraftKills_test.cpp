// A program that keeps drafts is killed at a random moment of an entry, a save, a registration or a return:
// at a call of the database's files, at a step of the user, or at any instant after one, which may be in the
// middle of writing a draft.

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <random>
#include <sstream>

#include "adapters/system/DraftFiles.h"
#include "tests/campaigns/Child.h"
#include "tests/campaigns/FaultyFiles.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Seeds.h"

namespace koru::test {
namespace {

constexpr unsigned kRounds = 60;
constexpr int kMark = 50;
constexpr long kMaxCalls = 90;
constexpr unsigned kMaxSteps = 12;
constexpr long kMaxNanoseconds = 3'000'000;  ///< from a step to the kill

/// Reports what happens to the drafts that another store keeps.
class ReportingDrafts : public DraftStore {
 public:
  ReportingDrafts(DraftStore& inner, Child::Report report) : inner_(inner), report_(std::move(report)) {}
  std::unique_ptr<Draft> Begin(const DraftOwner& owner) override {
    return std::make_unique<Reporting>(inner_.Begin(owner), *this);
  }
  std::unique_ptr<Draft> FindLeft(const DraftOwner& owner) override { return inner_.FindLeft(owner); }

  std::function<std::string()> Lines;

 private:
  class Reporting : public Draft {
   public:
    Reporting(std::unique_ptr<Draft> inner, ReportingDrafts& owner)
        : inner_(std::move(inner)), owner_(owner) {}
    void Write(std::string_view text) override {
      owner_.report_("writing " + owner_.Lines() + "\n");
      inner_->Write(text);
      owner_.report_("written " + owner_.Lines() + "\n");
    }
    void Remove() override {
      owner_.report_("removing -\n");
      inner_->Remove();
      owner_.report_("removed -\n");
    }
    std::string Read() const override { return inner_->Read(); }
    Moment Written() const override { return inner_->Written(); }
    std::string SetAside() override { return inner_->SetAside(); }

   private:
    std::unique_ptr<Draft> inner_;
    ReportingDrafts& owner_;
  };

  DraftStore& inner_;
  Child::Report report_;
};

/// What the reports of a killed program say of its drafts.
struct Expected {
  std::string written;  ///< what the draft held at last; empty for no draft
  std::string
      begun;  ///< what may have taken its place: a write, or "-" for a removal, that was not reported done
  Outcome outcome;
};

Expected ReadReports(const std::string& reports) {
  Expected expected;
  std::istringstream lines(reports);
  for (std::string line; std::getline(lines, line);) {
    const std::string what = line.substr(0, line.find(' '));
    const std::string text = line.substr(line.find(' ') + 1);
    if (what == "writing" || what == "removing") {
      expected.begun = text;
    } else if (what == "written" || what == "removed") {
      expected.written = what == "removed" ? std::string() : text;
      expected.begun.clear();
    } else {
      expected.outcome = ReadOutcome(line);
    }
  }
  return expected;
}

class DraftKills : public testing::Test {
 protected:
  /// One round; answers whether the program was killed in it, and counts whether a draft came back.
  bool Round(unsigned seed);
  void Live(unsigned seed, Work work, const Child::Report& report);
  void ExpectOffered(const Expected& expected);

  Store store_;
  TemporaryFolder folder_;
  std::string file_ = folder_.File("work.koru");
  DraftFiles drafts_{folder_.Path() / "drafts"};
  const std::map<int, StoredCounting> before_ = StoredCountings(store_.File());
  unsigned offered_ = 0;
};

void DraftKills::Live(unsigned seed, Work work, const Child::Report& report) {
  std::mt19937 random(seed);
  FaultyFiles files;
  ReportingDrafts drafts(drafts_, report);
  Station station(file_, &drafts);
  drafts.Lines = [&station] { return station.Lines(); };
  auto stepsLeft = seed % 3 == 0 ? 0UL : 1 + random() % kMaxSteps;
  const long nanoseconds = seed % 3 == 1 ? 0 : static_cast<long>(random() % kMaxNanoseconds);
  const auto step = [&] {
    if (stepsLeft == 0 || --stepsLeft > 0) return;
    if (nanoseconds == 0) raise(SIGKILL);
    KillAfter(nanoseconds);
  };
  if (seed % 3 == 0) files.Arrange(FaultyFiles::Fault::Kill, 1 + static_cast<long>(random() % kMaxCalls));
  station.OnTyped = [&] {
    step();
    station.Tick(static_cast<int>(random() % 9));
    step();
  };
  const Outcome outcome = station.Do(work, CountingOf(work), kMark);
  report(Written(outcome));
  step();
  station.Tick(9);
  files.Arrange(FaultyFiles::Fault::None, 0);
}

/// What was typed up to the last draft that was reported as written comes back, or what a later one holds.
void DraftKills::ExpectOffered(const Expected& expected) {
  Station station(file_, &drafts_);
  const auto restored = station.RestoreDraft();
  const std::string held = restored ? restored->lines : std::string();
  const bool isBegun = !expected.begun.empty() && held == (expected.begun == "-" ? "" : expected.begun);
  EXPECT_TRUE(held == expected.written || isBegun)
      << "written: " << expected.written << "\nbegun: " << expected.begun << "\noffered: " << held;
  if (!restored) return;
  ++offered_;
  EXPECT_TRUE(restored->entering);
  EXPECT_TRUE(restored->messages.empty());
}

bool DraftKills::Round(unsigned seed) {
  std::mt19937 random(seed);
  constexpr Work kWork[] = {Work::Save, Work::SaveNew, Work::Register, Work::RegisterNew, Work::Return};
  const Work work = kWork[random() % std::size(kWork)];
  SCOPED_TRACE(NameOf(work));
  store_.CopyTo(file_);
  std::filesystem::remove_all(folder_.Path() / "drafts");
  Child child([&](const Child::Report& report) { Live(seed, work, report); });
  Expected expected = ReadReports(child.Wait());
  EXPECT_TRUE(child.WasKilled() || child.EndedWell());
  if (expected.outcome.lines.empty()) expected.outcome.lines = LinesOf(work, kMark);
  ExpectKept(file_, work, expected.outcome, before_);
  ExpectOffered(expected);
  return child.WasKilled();
}

TEST_F(DraftKills, Lose_nothing_that_was_reported_and_offer_what_was_typed) {
  unsigned killed = 0;
  const unsigned rounds = RunSeeds(kRounds, [&](unsigned seed) { killed += Round(seed) ? 1 : 0; });
  std::cout << killed << " kills, " << offered_ << " drafts offered\n";
  EXPECT_GT(killed, rounds / 4) << "most kills come too late";
  EXPECT_GT(offered_, rounds / 10) << "hardly a draft was written";
}

}  // namespace
}  // namespace koru::test
