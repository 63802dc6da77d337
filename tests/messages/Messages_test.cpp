#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <utility>

#include "tests/messages/SeenTexts.h"

namespace koru::test {
namespace {

constexpr const char* kPage = KORU_SOURCES "/docs/messages.md";
constexpr const char* kGlosses = KORU_SOURCES "/tests/messages/glosses.tsv";

constexpr const char* kHead = R"(# Messages

Every Persian text of the program that a user can see, by the source file that has it, with its English. `…` and `%1` are
values that are put in; runs of blanks are shown as one.

What the sample database and the report files in `reports/` contain is not listed, nor what `--help` shows, which has its
English beside it.

The page is written by a test, `tests/messages`, and compared by it. The test fails where a text has no English in
`tests/messages/glosses.tsv`, and where that file has the English of a text that no source has. To write the page anew after
a change:

    KORU_RENEW_MESSAGES=1 build/dev/koru_test_messages
)";

std::vector<SeenText> AllTexts() {
  std::vector<SeenText> texts =
      SeenTextsIn(KORU_SOURCES,
                  {"adapters", "component", "counting", "database/sqlserver", "desktop", "draft", "floor",
                   "host", "lines", "output", "platform", "registration", "search", "services", "siblings"});
  return texts;
}

/// A text in a cell of a table, where `|` ends the cell.
std::string InCell(const std::string& text) {
  std::string cell;
  for (const char c : text) cell += c == '|' ? std::string("\\|") : std::string(1, c);
  return cell;
}

std::string Page() {
  const auto glosses = ReadGlosses(kGlosses);
  std::string page = kHead;
  std::string file;
  for (const SeenText& seen : AllTexts()) {
    if (std::exchange(file, seen.file) != seen.file)
      page += "\n## " + seen.file + "\n\n| Text | English |\n|---|---|\n";
    const auto gloss = glosses.find(seen.text);
    page += "| " + InCell(seen.text) + " | " + InCell(gloss == glosses.end() ? "" : gloss->second) + " |\n";
  }
  return page;
}

std::string Stored() {
  std::ifstream stream(kPage, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

TEST(Messages, The_page_lists_every_text_that_a_user_can_see) {
  const std::string page = Page();
  if (std::getenv("KORU_RENEW_MESSAGES") != nullptr) std::ofstream(kPage, std::ios::binary) << page;
  const std::string stored = Stored();
  const auto differs = std::mismatch(page.begin(), page.end(), stored.begin(), stored.end());
  EXPECT_TRUE(page == stored)
      << "docs/messages.md differs from the texts of the sources, first at line "
      << std::count(page.begin(), differs.first, '\n') + 1
      << ". After a wanted change: KORU_RENEW_MESSAGES=1 build/dev/koru_test_messages";
}

TEST(Messages, Every_text_has_its_English) {
  const auto glosses = ReadGlosses(kGlosses);
  const std::vector<SeenText> texts = AllTexts();
  for (const SeenText& seen : texts) {
    EXPECT_TRUE(glosses.contains(seen.text)) << "no English: " << seen.text << "\n(" << seen.file << ")";
  }
  EXPECT_GT(texts.size(), 400U);
}

TEST(Messages, No_English_is_left_of_a_text_that_is_gone) {
  std::set<std::string> texts;
  for (const SeenText& seen : AllTexts()) texts.insert(seen.text);
  for (const auto& [text, english] : ReadGlosses(kGlosses)) {
    EXPECT_TRUE(texts.contains(text)) << "no source has: " << text << " (" << english << ")";
  }
}

std::vector<std::string> TextsIn(const std::string& source) {
  std::vector<std::string> texts;
  for (const SeenText& seen : SeenTextsOf({"x.cpp", source})) texts.push_back(seen.text);
  return texts;
}

TEST(SeenTexts, A_sentence_put_together_of_parts_and_values_is_one_text) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(TextsIn("throw Error(\"سطر \" + Text(a, b) + \" نيست.\");"), (Texts{"سطر … نيست."}));
  EXPECT_EQ(TextsIn("f(\"سطر\" + a, b + \"نيست\");"), (Texts{"سطر", "نيست"}));
  EXPECT_EQ(TextsIn("x = \"سطر\" + a; y = b + \"نيست\";"), (Texts{"سطر", "نيست"}));
}

TEST(SeenTexts, Blanks_and_direction_marks_do_not_count_and_other_scripts_are_left_out) {
  EXPECT_EQ(TextsIn("f(\"  سطر  \\n\\u2068%1\\u2069\", \"row\", \"سطر %1\");"),
            (std::vector<std::string>{"سطر %1"}));
  EXPECT_EQ(TextsIn("f(\"، \", \"٪\", \"۱۲\");"), std::vector<std::string>{});
}

}  // namespace
}  // namespace koru::test
