#include "scenario/StepRows.h"

#include <algorithm>
#include <cstddef>

#include "scenario/ControlWords.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

std::string WrittenRow(const std::vector<ScenarioWord>& row) {
  std::string text = "|";
  for (const ScenarioWord& word : row) text += " " + Written(word);
  return text;
}

}  // namespace

void RowsMustBe(const StepRows& expected, const StepRows& found, const std::string& what) {
  for (std::size_t i = 0; i < std::max(expected.size(), found.size()); ++i) {
    const std::string left = i < expected.size() ? WrittenRow(expected[i]) : "no more";
    const std::string right = i < found.size() ? WrittenRow(found[i]) : "no more";
    MustBe(what + " " + std::to_string(i + 1), left, right);
  }
}

}  // namespace koru
