#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string_view>

#include "tests/manual/ManualPages.h"
#include "tests/messages/SeenTexts.h"

namespace koru::test {
namespace {

void Replace(std::string& text, std::string_view old, std::string_view by) {
  for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size()))
    text.replace(at, old.size(), by);
}

/// The titles of a grid's columns, which are one text of the sources.
void AddTitles(const std::string& text, std::set<std::string>& titles) {
  constexpr std::string_view kBetween = "|^";
  for (std::size_t at = 0; at != std::string::npos;) {
    const std::size_t end = text.find(kBetween, at);
    std::string title = text.substr(at, end == std::string::npos ? end : end - at);
    title.erase(0, title.find_first_not_of(' '));
    title.erase(title.find_last_not_of(' ') + 1);
    titles.insert(title);
    at = end == std::string::npos ? end : end + kBetween.size();
  }
}

/// All texts that the program shows, and the titles of columns; values are "…".
std::set<std::string> ShownTexts() {
  std::set<std::string> shown;
  for (const SeenText& seen :
       SeenTextsIn(KORU_SOURCES, {"adapters", "component", "counting", "desktop", "host", "lines", "output",
                                  "platform", "registration", "search", "services", "siblings"})) {
    std::string text = seen.text;
    for (const std::string_view value : {"%1", "%2"}) Replace(text, value, "…");
    shown.insert(text);
    AddTitles(text, shown);
  }
  return shown;
}

TEST(ManualText, Every_quoted_caption_is_a_text_of_the_program) {
  const std::set<std::string> shown = ShownTexts();
  std::size_t captions = 0;
  for (const ManualPage& page : ManualPages()) {
    for (const ManualText& text : page.texts) {
      if (text.kind != ManualText::Kind::Caption) continue;
      ++captions;
      EXPECT_TRUE(shown.contains(text.text)) << page.name << ": " << text.text;
    }
  }
  EXPECT_GT(captions, 150U);
}

TEST(ManualText, Every_quoted_name_of_the_sample_is_in_the_sample) {
  std::set<std::string> sample;
  for (const SeenText& seen : SeenTextsIn(KORU_SOURCES, {"database"})) sample.insert(seen.text);
  std::size_t names = 0;
  for (const ManualPage& page : ManualPages()) {
    for (const ManualText& text : page.texts) {
      if (text.kind != ManualText::Kind::Data) continue;
      ++names;
      EXPECT_TRUE(sample.contains(text.text)) << page.name << ": " << text.text;
    }
  }
  EXPECT_GE(names, 3U);
}

/// What Persian prose does not contain, and why.
struct Unwanted {
  std::string_view text;
  std::string_view why;
};

constexpr Unwanted kUnwanted[] = {
    {"ي", "Arabic yeh"},
    {"ى", "alef maksura"},
    {"ك", "Arabic kaf"},
    {"ة", "teh marbuta"},
    {"ـ", "tatweel"},
    {" می ", "a blank after می"},
    {" نمی ", "a blank after نمی"},
    {" ها ", "a blank before ها"},
    {" های ", "a blank before های"},
    {" هایی ", "a blank before هایی"},
    {" تر ", "a blank before تر"},
    {" ترین ", "a blank before ترین"},
    {" ،", "a blank before a comma"},
    {" .", "a blank before a full stop"},
    {" ؛", "a blank before a semicolon"},
    {" :", "a blank before a colon"},
    {" ؟", "a blank before a question mark"},
    {"« ", "a blank in a quotation"},
    {" »", "a blank in a quotation"},
    {"\u200C\u200C", "two non-joiners"},
    {"\u200C ", "a non-joiner before a blank"},
    {" \u200C", "a non-joiner after a blank"},
    {"  ", "two blanks"},
};

/// Signs and digits of another script.
bool IsForeign(char c) {
  return (c >= '0' && c <= '9') || std::string_view(",;?%\"'").find(c) != std::string_view::npos;
}

bool HasArabicDigit(const std::string& text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    const auto trail = static_cast<unsigned char>(text[at + 1]);
    if (static_cast<unsigned char>(text[at]) == 0xD9 && trail >= 0xA0 && trail <= 0xA9) return true;
  }
  return false;
}

TEST(ManualText, Prose_is_in_Persian_letters_and_digits_with_half_spaces) {
  for (const ManualPage& page : ManualPages()) {
    for (const ManualText& piece : page.texts) {
      if (piece.kind != ManualText::Kind::Prose) continue;
      std::string text = " " + piece.text + " ";
      Replace(text, "\n", " ");
      if (text.find_first_not_of(' ') == std::string::npos) continue;
      for (const Unwanted& unwanted : kUnwanted) {
        if (unwanted.text.starts_with(" ") != unwanted.text.ends_with(" ") || unwanted.text == "  ") {
          // At the ends of a piece there may be a tag.
          EXPECT_EQ(piece.text.find(unwanted.text), std::string::npos)
              << page.name << ": " << unwanted.why << ": " << piece.text;
        } else {
          EXPECT_EQ(text.find(unwanted.text), std::string::npos)
              << page.name << ": " << unwanted.why << ": " << piece.text;
        }
      }
      EXPECT_TRUE(std::none_of(piece.text.begin(), piece.text.end(), IsForeign))
          << page.name << ": a sign or digit of another script: " << piece.text;
      EXPECT_FALSE(HasArabicDigit(piece.text)) << page.name << ": an Arabic digit: " << piece.text;
    }
  }
}

}  // namespace
}  // namespace koru::test
