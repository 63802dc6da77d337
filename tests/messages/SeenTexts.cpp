#include "tests/messages/SeenTexts.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "platform/text/Text.h"

namespace koru::test {
namespace {

/// Whether the source between two constants adds them to one text: it begins and ends with a plus, and no
/// statement or further argument begins in it.
bool AddsUp(std::string_view between) {
  between = Trim(between);
  if (between.size() < 3 || between.front() != '+' || between.back() != '+') return false;
  int open = 0;
  for (const char c : between) {
    if (c == ';' || c == '{' || c == '}') return false;
    if (c == '(') ++open;
    if (c == ')' && --open < 0) return false;
    if (c == ',' && open == 0) return false;
  }
  return open == 0;
}

/// Whether the text has a letter of the Arabic script; its digits and punctuation do not count.
bool IsPersian(const std::string& text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto trail = static_cast<unsigned char>(text[at + 1]);
    if (lead == 0xD8 && trail >= 0xA0) return true;                     // U+0620 to U+063F
    if (lead == 0xD9 && (trail <= 0x8A || trail >= 0xB1)) return true;  // U+0640 to U+064A, from U+0671
    if (lead == 0xDA || (lead == 0xDB && trail <= 0x93)) return true;   // to U+06D3
  }
  return false;
}

/// The program's help has the English beside the Persian.
bool IsPage(const std::string& text) { return std::count(text.begin(), text.end(), '\n') > 3; }

void Replace(std::string& text, std::string_view old, std::string_view by) {
  for (std::size_t at = text.find(old); at != std::string::npos; at = text.find(old, at + by.size())) {
    text.replace(at, old.size(), by);
  }
}

std::string Shown(std::string text) {
  for (const char* mark : {"\u200E", "\u200F", "\u2066", "\u2067", "\u2068", "\u2069"})
    Replace(text, mark, "");
  for (const char* blank : {"\n", "\t", "\u00A0"}) Replace(text, blank, " ");
  while (text.find("  ") != std::string::npos) Replace(text, "  ", " ");
  return std::string(Trim(text));
}

}  // namespace

std::vector<SeenText> SeenTextsOf(const SourceFile& source) {
  std::vector<SeenText> seen;
  std::string text;
  const auto take = [&] {
    SeenText taken{Shown(text), source.name};
    if (IsPersian(text) && !IsPage(text) && std::find(seen.begin(), seen.end(), taken) == seen.end())
      seen.push_back(std::move(taken));
  };
  std::size_t end = 0;
  for (const SourceText& constant : TextsOf(source.content, source.name)) {
    const std::string_view between = std::string_view(source.content).substr(end, constant.begin - end);
    if (AddsUp(between)) {
      text += "…" + constant.text;
    } else {
      take();
      text = constant.text;
    }
    end = constant.end;
  }
  take();
  return seen;
}

std::vector<SeenText> SeenTextsIn(const std::filesystem::path& root,
                                  const std::vector<std::string>& folders) {
  std::vector<SeenText> all;
  for (const SourceFile& source : SourcesIn(root, folders)) {
    const std::vector<SeenText> seen = SeenTextsOf(source);
    all.insert(all.end(), seen.begin(), seen.end());
  }
  return all;
}

std::map<std::string, std::string> ReadGlosses(const std::filesystem::path& file) {
  std::map<std::string, std::string> glosses;
  std::ifstream stream(file, std::ios::binary);
  for (std::string line; std::getline(stream, line);) {
    const std::size_t tab = line.find('\t');
    if (tab == 0 || tab == std::string::npos || tab + 1 == line.size())
      throw std::runtime_error("no text and gloss: " + line);
    if (!glosses.emplace(line.substr(0, tab), line.substr(tab + 1)).second)
      throw std::runtime_error("two glosses: " + line);
  }
  return glosses;
}

}  // namespace koru::test
