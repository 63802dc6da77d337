#include "scenario/Scenario.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <optional>

#include "platform/text/Errors.h"
#include "platform/text/Text.h"
#include "scenario/ScenarioPattern.h"

namespace koru {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Reads the words of one line.
class LineReader {
 public:
  LineReader(std::string_view line, std::string place) : rest_(line), place_(std::move(place)) {}

  [[nodiscard]] std::vector<ScenarioWord> Words() {
    std::vector<ScenarioWord> words;
    while (SkipBlanks() && rest_.front() != '#') words.push_back(rest_.front() == '"' ? Quoted() : Bare());
    return words;
  }

 private:
  bool SkipBlanks() {
    rest_.remove_prefix(std::min(rest_.size(), rest_.find_first_not_of(kBlanks)));
    return !rest_.empty();
  }

  ScenarioWord Bare() {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(kBlanks));
    if (word.find('"') != std::string_view::npos)
      Fail("there is a quote inside the word " + std::string(word));
    rest_.remove_prefix(word.size());
    return {std::string(word), false};
  }

  ScenarioWord Quoted() {
    ScenarioWord word{{}, true};
    rest_.remove_prefix(1);
    while (!rest_.empty() && rest_.front() != '"') {
      const char c = rest_.front();
      rest_.remove_prefix(1);
      if (c == '\\') {
        AppendCharacter(word.text, Escaped());
      } else {
        word.text += c;
      }
    }
    if (rest_.empty()) Fail("a quoted text does not end on its line");
    rest_.remove_prefix(1);
    if (!rest_.empty() && kBlanks.find(rest_.front()) == std::string_view::npos) {
      Fail("a blank is missing after the quoted text " + QuotedForScenario(word.text));
    }
    return word;
  }

  char32_t Escaped() {
    const char c = rest_.empty() ? '\0' : rest_.front();
    if (c != 'u') {
      if (c != '"' && c != '\\' && c != 'n')
        Fail(R"(after \ only " \ n or u and four hexadecimal digits may come)");
      rest_.remove_prefix(1);
      return c == 'n' ? U'\n' : static_cast<char32_t>(c);
    }
    const std::string_view digits = rest_.substr(1, 4);
    unsigned code = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    if (digits.size() != 4 || error != std::errc() || end != digits.data() + 4) {
      Fail(R"(\u needs four hexadecimal digits)");
    }
    rest_.remove_prefix(5);
    return code;
  }

  [[noreturn]] void Fail(const std::string& what) const { throw InputError(place_ + ": " + what); }

  std::string_view rest_;
  std::string place_;
};

std::size_t PatternOf(const ScenarioStep& step, std::span<const std::string_view> patterns,
                      const std::string& place) {
  const auto found = std::find_if(patterns.begin(), patterns.end(), [&](std::string_view pattern) {
    return MatchesPattern(pattern, step.words);
  });
  if (found != patterns.end()) return static_cast<std::size_t>(found - patterns.begin());
  std::string known;
  for (const std::string_view pattern : patterns) {
    if (PatternWords(pattern).front() != step.Text(0)) continue;
    known += (known.empty() ? "; it is written: " : ", or: ") + std::string(pattern);
  }
  throw InputError(place + ": unknown step: " + step.Text(0) + known);
}

/// The text without its first line, which is returned.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(text.size(), line.size() + 1));
  return line;
}

void AddRow(Scenario& scenario, std::span<const std::string_view> patterns, std::vector<ScenarioWord> row,
            const std::string& place) {
  if (scenario.steps.empty() || !TakesRows(patterns[scenario.steps.back().pattern])) {
    throw InputError(place + ": a line that begins with | belongs to no step");
  }
  scenario.steps.back().rows.push_back(std::move(row));
}

}  // namespace

std::int32_t ScenarioStep::Number(std::size_t index) const {
  const std::string& text = Text(index);
  std::int32_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

Scenario ParseScenario(std::string_view text, const std::string& file,
                       std::span<const std::string_view> patterns) {
  Scenario scenario{file, {}};
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  for (int number = 1; !text.empty(); ++number) {
    std::string_view line = TakeLine(text);
    line.remove_prefix(std::min(line.size(), line.find_first_not_of(kBlanks)));
    if (line.empty() || line.front() == '#') continue;
    const std::string place = ScenarioPlace(file, number);
    const bool isRow = line.front() == '|';
    ScenarioStep step{0, number, LineReader(isRow ? line.substr(1) : line, place).Words(), {}};
    if (isRow) {
      AddRow(scenario, patterns, std::move(step.words), place);
      continue;
    }
    step.pattern = PatternOf(step, patterns, place);
    scenario.steps.push_back(std::move(step));
  }
  if (scenario.steps.empty()) throw InputError(file + ": the scenario has no step");
  return scenario;
}

Scenario ReadScenario(const std::filesystem::path& file, std::span<const std::string_view> patterns) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream || std::filesystem::is_directory(file))
    throw InputError(file.string() + ": the scenario cannot be read");
  const std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  return ParseScenario(text, file.string(), patterns);
}

std::string QuotedForScenario(std::string_view text) {
  constexpr std::string_view kHexadecimal = "0123456789ABCDEF";
  // Control characters, no-break blank and direction marks look like other characters on the screen.
  const auto isUnseen = [](char32_t c) {
    return c < 0x20 || c == 0x7F || c == 0xA0 || c == 0xFEFF || (c >= 0x200B && c <= 0x200F) ||
           (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
  };
  std::string quoted = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const char32_t c = NextCharacter(text, at);
    if (c == U'\n') {
      quoted += "\\n";
    } else if (isUnseen(c)) {
      quoted += "\\u";
      for (int shift = 12; shift >= 0; shift -= 4) quoted += kHexadecimal[(c >> shift) & 0xFU];
    } else {
      if (c == U'"' || c == U'\\') quoted += '\\';
      AppendCharacter(quoted, c);
    }
  }
  return quoted + '"';
}

std::string ScenarioPlace(const std::string& file, int line) { return file + ":" + std::to_string(line); }

}  // namespace koru
