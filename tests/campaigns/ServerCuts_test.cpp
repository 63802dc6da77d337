// The connection to a server breaks at each request of a save and of a registration of many lines, before the
// request has run and after it.

#include <gtest/gtest.h>

#include <iostream>
#include <set>

#include "database/scratch/ScratchDatabase.h"
#include "tests/campaigns/Rounds.h"
#include "tests/campaigns/Setting.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

using Fault = StandInServer::Fault;

constexpr int kLines = 500;

class ServerCuts : public testing::TestWithParam<Work> {
 protected:
  /// The requests of the work when nothing breaks.
  int Requests() {
    Station station(server_.ConnectionText());
    station.SetNewLines(kLines);
    station.Open(Counting());
    std::uint64_t before = 0;
    station.OnEntered = [&] { before = server_.RoundTrips(); };
    EXPECT_TRUE(station.Perform(GetParam(), 1).done);
    return static_cast<int>(server_.RoundTrips() - before);
  }
  /// All of a few requests; of many, the first, the last and some between.
  static std::set<int> Moments(int requests) {
    constexpr int kAll = 40;
    constexpr int kSome = 5;
    const int step = requests <= kAll ? 1 : requests / kSome;
    std::set<int> moments;
    for (int at = 1; at <= requests; ++at) {
      if (at <= kSome || at > requests - kSome || at % step == 0) moments.insert(at);
    }
    return moments;
  }
  void CutAt(int request, Fault fault, int mark);

  [[nodiscard]] static bool IsNew() { return GetParam() == Work::SaveNew || GetParam() == Work::RegisterNew; }
  static int Counting() { return CountingOf(GetParam()); }

  Store store_;
  StandInServer server_;
  ScratchDatabase database_{store_.File(), server_.ConnectionText()};
  int stored_ = 0;
};

void ServerCuts::CutAt(int request, Fault fault, int mark) {
  SCOPED_TRACE("cut " + std::string(fault == Fault::CutBefore ? "before" : "after") + " request " +
               std::to_string(request));
  Station station(server_.ConnectionText());
  station.SetNewLines(kLines);
  ASSERT_TRUE(station.Open(Counting()));
  const auto before = StoredCountings(server_.File());
  station.OnEntered = [&] { server_.ArrangeFault(request, fault); };
  const Outcome outcome = station.Perform(GetParam(), mark);
  station.OnEntered = [] {};
  server_.ArrangeFault(0, fault);
  const auto after = StoredCountings(server_.File());
  EXPECT_EQ(Violations(server_.File()), std::vector<std::string>{});
  if (outcome.done) {
    ++stored_;
    ASSERT_TRUE(after.contains(outcome.id));
    EXPECT_EQ(after.at(outcome.id).lines, outcome.lines) << "what was reported is stored";
    return;
  }
  EXPECT_FALSE(outcome.messages.empty()) << "the user does not know";
  EXPECT_EQ(after, before) << "something is stored of what was not reported";
  ExpectStillEntered(server_.File(), GetParam(), outcome, before);
  const Outcome second = station.Perform(GetParam(), mark);
  EXPECT_TRUE(second.done) << (second.messages.empty() ? "" : second.messages.back());
  const auto now = StoredCountings(server_.File());
  ASSERT_TRUE(now.contains(second.id));
  EXPECT_EQ(now.at(second.id).lines, second.lines);
  EXPECT_EQ(now.at(second.id).code, second.code);
  EXPECT_EQ(now.size(), before.size() + (IsNew() ? 1 : 0));
  EXPECT_EQ(Violations(server_.File()), std::vector<std::string>{});
  if (!second.code.empty()) {
    EXPECT_EQ(DocumentViolations(server_.File(), second.id), std::vector<std::string>{});
  }
}

TEST_P(ServerCuts, Store_all_or_nothing_and_the_form_says_which) {
  const int requests = Requests();
  const std::set<int> moments = Moments(requests);
  std::cout << requests << " requests, " << 2 * moments.size() << " cuts\n";
  int mark = 1;
  for (const int moment : moments) {
    for (const Fault fault : {Fault::CutBefore, Fault::CutAfter}) {
      if (HasFailure()) return;
      CutAt(moment, fault, mark += 1000);
    }
  }
  // After its last request, and where the answer to the end of its write batch is lost.
  EXPECT_GE(stored_, 1);
}

INSTANTIATE_TEST_SUITE_P(Of, ServerCuts, testing::Values(Work::SaveNew, Work::RegisterNew),
                         [](const auto& info) { return NameOf(info.param); });

}  // namespace
}  // namespace koru::test
