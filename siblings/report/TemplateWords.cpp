#include "siblings/report/TemplateWords.h"

#include "siblings/report/ReportTemplate.h"

namespace koru {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

/// Reads the quoted text whose opening quote is at `at` and advances `at` past the closing quote. False: the
/// quote is not closed.
bool ReadQuoted(std::string_view line, std::size_t& at, std::string& text) {
  for (++at; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return true;
    }
    const bool escape =
        line[at] == '\\' && at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '\\');
    if (escape) ++at;
    text += line[at];
  }
  return false;
}

}  // namespace

std::vector<TemplateWord> TemplateWords(std::string_view line, const std::string& file, int number) {
  std::vector<TemplateWord> words;
  for (std::size_t at = 0; at < line.size();) {
    if (IsBlank(line[at])) {
      ++at;
    } else if (line[at] == '#') {
      break;
    } else if (line[at] == '"') {
      TemplateWord word{{}, true};
      if (!ReadQuoted(line, at, word.text)) RefuseReport(file, number, "متن بسته نشده است");
      words.push_back(std::move(word));
    } else {
      const std::size_t begin = at;
      while (at < line.size() && !IsBlank(line[at]) && line[at] != '"') ++at;
      words.push_back({std::string(line.substr(begin, at - begin)), false});
    }
  }
  return words;
}

}  // namespace koru
