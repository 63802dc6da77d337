// A scenario is read, or refused with file and line; its steps written again are the same steps.

#include "scenario/Scenario.h"

#include <algorithm>
#include <array>
#include <string>

#include "fuzz/Require.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace {

using koru::fuzz::Require;

/// One pattern of each kind of word.
constexpr std::array<std::string_view, 8> kPatterns = {
    "show TEXT",     "view NUMBER", "type NAME TEXT",        "date NAME DATE|none",
    "press KEY ...", "rows ROWS",   "is|has NAME TEXT ROWS", "new"};

bool IsUtf8(std::string_view text) {
  std::string same;
  for (std::size_t at = 0; at < text.size();) koru::AppendCharacter(same, koru::NextCharacter(text, at));
  return same == text;
}

/// Half of a surrogate pair, which an escape can name, and other bytes that are no text cannot be written.
bool CanBeWritten(const koru::Scenario& scenario) {
  const auto isText = [](const std::vector<koru::ScenarioWord>& words) {
    return std::all_of(words.begin(), words.end(), [](const auto& word) { return IsUtf8(word.text); });
  };
  return std::all_of(scenario.steps.begin(), scenario.steps.end(), [&](const koru::ScenarioStep& step) {
    return isText(step.words) && std::all_of(step.rows.begin(), step.rows.end(), isText);
  });
}

std::string Written(const std::vector<koru::ScenarioWord>& words) {
  std::string line;
  for (const koru::ScenarioWord& word : words) {
    line += " " + (word.quoted ? koru::QuotedForScenario(word.text) : word.text);
  }
  return line + "\n";
}

void CheckWrittenAgain(const koru::Scenario& scenario) {
  if (!CanBeWritten(scenario)) return;
  std::string text;
  for (const koru::ScenarioStep& step : scenario.steps) {
    text += Written(step.words);
    for (const auto& row : step.rows) text += "|" + Written(row);
  }
  const koru::Scenario again = koru::ParseScenario(text, "again", kPatterns);
  Require(again.steps.size() == scenario.steps.size(), "as many steps as before");
  for (std::size_t step = 0; step < again.steps.size(); ++step) {
    Require(again.steps[step].pattern == scenario.steps[step].pattern, "a step matches the same pattern");
    Require(again.steps[step].words == scenario.steps[step].words, "a step has the same words");
    Require(again.steps[step].rows == scenario.steps[step].rows, "a step has the same rows");
  }
}

void CheckQuoting(std::string_view text) {
  if (!IsUtf8(text)) return;
  const std::string line = "show " + koru::QuotedForScenario(text);
  Require(koru::ParseScenario(line, "quoted", kPatterns).steps.at(0).Text(1) == text,
          "a quoted text is read as it was written");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = koru::fuzz::TextOf(data, size);
  CheckQuoting(text);
  try {
    CheckWrittenAgain(koru::ParseScenario(text, "fuzzed.scenario", kPatterns));
  } catch (const koru::InputError& refused) {
    Require(std::string(refused.what()).starts_with("fuzzed.scenario:"), "a refusal names the file");
  }
  return 0;
}
