#include "tests/campaigns/Rounds.h"

#include <sstream>

namespace koru::test {
namespace {

void ExpectReported(const std::string& file, Work work, const Outcome& outcome) {
  const auto after = StoredCountings(file);
  const auto found = after.find(outcome.id);
  if (work == Work::Delete) {
    EXPECT_EQ(after.count(CountingOf(work)), 0U) << "a deleted counting is still there";
    return;
  }
  ASSERT_NE(found, after.end()) << "what was reported is not there";
  EXPECT_EQ(found->second.lines, outcome.lines) << "what was reported is stored";
  EXPECT_EQ(found->second.code, outcome.code) << "what was reported is stored";
  if (!outcome.code.empty()) {
    EXPECT_EQ(DocumentViolations(file, outcome.id), std::vector<std::string>{});
  }
}

/// No document in halves: the lines are those of before, or all the new ones.
void ExpectWhole(const std::string& file, Work work, const Outcome& outcome,
                 const std::map<int, StoredCounting>& before) {
  for (const auto& [id, counting] : StoredCountings(file)) {
    const auto earlier = before.find(id);
    const bool isOld = earlier != before.end() && counting.lines == earlier->second.lines;
    const bool isNew = counting.lines == outcome.lines && (id == CountingOf(work) || earlier == before.end());
    EXPECT_TRUE(isOld || isNew) << "counting " << id << " in halves: " << counting.lines;
  }
}

}  // namespace

std::string NameOf(Work work) {
  constexpr const char* kNames[kWorks] = {"Save", "SaveNew", "Register", "RegisterNew", "Return", "Delete"};
  return kNames[static_cast<int>(work)];
}

int CountingOf(Work work) {
  switch (work) {
    case Work::Save:
      return 1;
    case Work::Register:
      return 2;
    case Work::Return:
      return kFirstFinal;
    case Work::Delete:
      return 3;
    case Work::SaveNew:
    case Work::RegisterNew:
      return 0;
  }
  return 0;
}

std::string LinesOf(Work work, int mark) {
  const bool isNew = work == Work::SaveNew || work == Work::RegisterNew;
  std::string lines;
  for (int line = 1; line <= (isNew ? 4 : 6); ++line) {
    lines += "G" + std::to_string(line) + "=" + std::to_string(mark + line) + ";";
  }
  return lines;
}

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

void ExpectKept(const std::string& file, Work work, const Outcome& outcome,
                const std::map<int, StoredCounting>& before) {
  EXPECT_EQ(Violations(file), std::vector<std::string>{});
  if (outcome.done) ExpectReported(file, work, outcome);
  ExpectWhole(file, work, outcome, before);
}

void ExpectStillEntered(const std::string& file, Work work, const Outcome& outcome,
                        const std::map<int, StoredCounting>& before) {
  if (!outcome.entered || outcome.done || StoredCountings(file) != before) return;
  EXPECT_TRUE(outcome.entering) << "nothing was kept, and it cannot be saved again";
  EXPECT_EQ(outcome.id, CountingOf(work)) << "the form shows a key that nothing has";
}

}  // namespace koru::test
