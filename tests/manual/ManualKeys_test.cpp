#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>

#include "tests/manual/ManualPages.h"

namespace koru::test {
namespace {

/// The steps that compare something, or fail where what they name has not happened.
const std::set<std::string> kChecks = {"expect", "message", "question", "picked", "document", "dialog"};

void Replace(std::string& text, const std::string& old, const std::string& by) {
  for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size()))
    text.replace(at, old.size(), by);
}

/// A key of the manual as a scenario names it.
std::string InScenario(std::string key) {
  Replace(key, "Esc", "Escape");
  Replace(key, "Page ", "Page");
  Replace(key, "++", "+Plus");
  Replace(key, "+-", "+Minus");
  return key;
}

/// The keys that a scenario presses, and the texts of one letter that it types.
std::set<std::string> PressedIn(const std::filesystem::path& scenario) {
  std::set<std::string> keys;
  for (const std::string& line : LinesOf(scenario)) {
    std::istringstream words(line);
    std::string step;
    std::string key;
    words >> step;
    if (step == "key") words >> key;  // the control
    if (step == "key" || step == "press") words >> key;
    Replace(key, "\"", "");
    if (!key.empty()) keys.insert(key);
  }
  return keys;
}

std::set<std::string> PressedInAll() {
  std::set<std::string> all;
  for (const auto& entry : std::filesystem::directory_iterator(KORU_SOURCES "/scenarios/manual"))
    all.merge(PressedIn(entry.path()));
  return all;
}

std::map<std::string, std::set<std::string>> KeysOfSheet() {
  std::map<std::string, std::set<std::string>> sections;
  for (const ManualPage& page : ManualPages()) {
    if (page.name != "keys.html") continue;
    for (const ManualText& text : page.texts) {
      if (text.kind == ManualText::Kind::Key) sections[text.section].insert(InScenario(text.text));
    }
  }
  return sections;
}

TEST(ManualKeys, A_scenario_presses_every_key_of_each_section_of_the_sheet) {
  const auto sections = KeysOfSheet();
  EXPECT_GE(sections.size(), 11U);
  for (const auto& [section, keys] : sections) {
    if (section.empty()) continue;  // the words above the first table
    const std::set<std::string> pressed =
        PressedIn(KORU_SOURCES "/scenarios/manual/keys-" + section + ".scenario");
    for (const std::string& key : keys) EXPECT_TRUE(pressed.contains(key)) << section << ": " << key;
  }
}

TEST(ManualKeys, No_scenario_ends_with_a_key_whose_effect_it_does_not_check) {
  std::size_t checks = 0;
  for (const auto& entry : std::filesystem::directory_iterator(KORU_SOURCES "/scenarios/manual")) {
    if (!entry.path().filename().string().starts_with("keys-")) continue;
    std::string unchecked;
    for (const std::string& line : LinesOf(entry.path())) {
      const std::string step = line.substr(0, line.find(' '));
      if (step == "press" || step == "key") unchecked = line;
      if (!kChecks.contains(step)) continue;
      unchecked.clear();
      ++checks;
    }
    EXPECT_EQ(unchecked, "") << entry.path().filename();
  }
  EXPECT_GT(checks, 100U);
}

TEST(ManualKeys, A_scenario_presses_every_key_that_a_page_names) {
  const std::set<std::string> pressed = PressedInAll();
  std::size_t keys = 0;
  for (const ManualPage& page : ManualPages()) {
    for (const ManualText& text : page.texts) {
      if (text.kind != ManualText::Kind::Key) continue;
      ++keys;
      EXPECT_TRUE(pressed.contains(InScenario(text.text))) << page.name << ": " << text.text;
    }
  }
  EXPECT_GT(keys, 100U);
}

}  // namespace
}  // namespace koru::test
