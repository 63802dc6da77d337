// Two and four programs save and register countings of their own in loops, as fast as they can: on a stand-in
// for the suite's server, and on an embedded file.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <numeric>
#include <optional>
#include <set>
#include <sstream>
#include <stdexcept>

#include "database/scratch/ScratchDatabase.h"
#include "tests/campaigns/Child.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Setting.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

/// Of all programs together; KORU_CAMPAIGN_TIMES=25 makes them 1,500 and 1,000.
constexpr unsigned kNewCountings = 60;
constexpr unsigned kRegistrations = 40;

/// Lets the programs begin together.
class Gate {
 public:
  Gate() {
    if (pipe(ends_.data()) != 0) throw std::runtime_error("no pipe");
  }
  Gate(const Gate&) = delete;
  Gate& operator=(const Gate&) = delete;
  ~Gate() { close(ends_[0]); }
  /// In a program: waits until it opens.
  void Await() const {
    close(ends_[1]);
    char none = 0;
    while (read(ends_[0], &none, 1) > 0) {
    }
  }
  void Open() const { close(ends_[1]); }

 private:
  std::array<int, 2> ends_{};
};

/// Repeats work that a lock has kept from being done, as a user would; answers what was done.
Outcome DoneAtLast(Station& station, Work work, int id, int mark, int& refused) {
  constexpr int kTries = 20;
  Outcome outcome;
  for (int time = 0; time < kTries; ++time, ++refused) {
    outcome = station.Do(work, id, mark);
    if (outcome.done) return outcome;
  }
  throw std::runtime_error("not done: " + NameOf(work) + " " +
                           (outcome.messages.empty() ? "" : outcome.messages.back()));
}

/// Saves new countings, and registers two of three. Reports `id code lines` of each at its end (`-` for no
/// code), `refused` and how often a command had to be repeated, and `wait` and each wait in microseconds.
void SaveAndRegister(const std::string& database, int program, unsigned saves, unsigned registrations,
                     const Child::Report& report) {
  Station station(database);
  std::ostringstream written;
  int refused = 0;
  for (unsigned i = 0; i < saves; ++i) {
    const int mark = (program + 1) * 100'000 + static_cast<int>(i) * 10;
    Outcome outcome = DoneAtLast(station, Work::SaveNew, 0, mark, refused);
    if ((i + 1) * registrations / saves > i * registrations / saves) {
      const Outcome saved = outcome;
      outcome = DoneAtLast(station, Work::Register, saved.id, mark + 5, refused);
      if (outcome.id != saved.id) throw std::runtime_error("another counting was registered");
    }
    written << outcome.id << " " << (outcome.code.empty() ? "-" : outcome.code) << " " << outcome.lines
            << "\n";
  }
  written << "refused " << refused << " x\n";
  for (const std::chrono::microseconds wait : station.Waits()) written << "wait " << wait.count() << " x\n";
  report(written.str());
}

class ManyStations : public testing::TestWithParam<int> {
 protected:
  /// Expects on `file`, which holds the data of `database`, what the programs report.
  void Run(const std::string& database, const std::string& file);
  void ExpectReported(const std::string& file, const std::string& reported);

  Store store_;
  TemporaryFolder folder_;
};

void ManyStations::Run(const std::string& database, const std::string& file) {
  const std::size_t before = StoredCountings(file).size();
  const unsigned times = CampaignSetting().times;
  const auto programs = static_cast<unsigned>(GetParam());
  const Gate gate;
  std::vector<std::unique_ptr<Child>> children;
  for (unsigned program = 0; program < programs; ++program) {
    children.push_back(std::make_unique<Child>([&, program](const Child::Report& report) {
      gate.Await();
      SaveAndRegister(database, static_cast<int>(program), kNewCountings * times / programs,
                      kRegistrations * times / programs, report);
    }));
  }
  gate.Open();
  std::string reported;
  for (const auto& child : children) reported += child->Wait();
  for (const auto& child : children) EXPECT_TRUE(child->EndedWell());
  EXPECT_EQ(Violations(file), std::vector<std::string>{});
  EXPECT_EQ(StoredCountings(file).size(), before + kNewCountings * times / programs * programs);
  ExpectReported(file, reported);
}

void ManyStations::ExpectReported(const std::string& file, const std::string& reported) {
  const auto stored = StoredCountings(file);
  std::vector<long> waits;
  std::set<std::string> ids;
  std::set<std::string> codes;
  long refused = 0;
  std::istringstream rows(reported);
  for (std::string id, code, lines; rows >> id >> code >> lines;) {
    if (id == "wait") {
      waits.push_back(std::stol(code));
    } else if (id == "refused") {
      refused += std::stol(code);
    } else {
      EXPECT_TRUE(ids.insert(id).second) << "the key " << id << " was reported twice";
      EXPECT_TRUE(code == "-" || codes.insert(code).second) << "the number " << code << " was given twice";
      const auto found = stored.find(std::stoi(id));
      ASSERT_NE(found, stored.end()) << "counting " << id << " is lost";
      EXPECT_EQ(found->second.lines, lines) << "counting " << id;
      EXPECT_EQ(found->second.code, code == "-" ? "" : code) << "counting " << id;
      if (code == "-") continue;
      EXPECT_EQ(DocumentViolations(file, std::stoi(id)), std::vector<std::string>{}) << id;
    }
  }
  ASSERT_FALSE(waits.empty());
  std::sort(waits.begin(), waits.end());
  std::cout << GetParam() << " programs: " << ids.size() << " new countings, " << codes.size()
            << " registrations, " << refused << " refused; waits in ms: median "
            << static_cast<double>(waits[waits.size() / 2]) / 1000 << ", worst "
            << static_cast<double>(waits.back()) / 1000 << "\n";
}

TEST_P(ManyStations, On_a_server_lose_mix_and_number_twice_nothing) {
  const StandInServer server;
  { const ScratchDatabase filled(store_.File(), server.ConnectionText()); }
  Run(server.ConnectionText(), server.File());
}

TEST_P(ManyStations, On_a_file_lose_mix_and_number_twice_nothing) {
  const std::string file = folder_.File("work.koru");
  store_.CopyTo(file);
  Run(file, file);
}

INSTANTIATE_TEST_SUITE_P(Of, ManyStations, testing::Values(2, 4),
                         [](const auto& info) { return std::to_string(info.param) + "_programs"; });

}  // namespace
}  // namespace koru::test
