#include "tests/statements/SourceTexts.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "platform/text/Text.h"

namespace koru::test {
namespace {

class Reader {
 public:
  Reader(const std::string& source, const std::string& name) : source_(source), name_(name) {}

  std::vector<SourceText> Read() {
    while (at_ < source_.size()) Step();
    return texts_;
  }

 private:
  void Step() {
    if (Skipped("//", "\n") || Skipped("/*", "*/")) return;
    const char c = source_[at_];
    if (c == '\n') ++line_;
    if (c == '#' && Skipped("#", "\n")) {
      adjacent_ = false;
    } else if (c == '"') {
      TakeText();
    } else if (c == '\'') {
      TakeCharacter();
    } else {
      if (!std::isspace(static_cast<unsigned char>(c))) adjacent_ = false;
      ++at_;
    }
  }

  /// Goes behind what begins and ends so, if it stands here; a line end at its end stays.
  bool Skipped(const std::string& begin, const std::string& end) {
    if (source_.compare(at_, begin.size(), begin) != 0) return false;
    const std::size_t found = std::min(source_.find(end, at_ + begin.size()), source_.size());
    const std::size_t behind = end == "\n" ? found : std::min(found + end.size(), source_.size());
    line_ += std::count(source_.begin() + static_cast<std::ptrdiff_t>(at_),
                        source_.begin() + static_cast<std::ptrdiff_t>(behind), '\n');
    at_ = behind;
    return true;
  }

  void TakeCharacter() {
    // An apostrophe between digits parts thousands.
    const bool isInNumber = at_ > 0 && std::isdigit(static_cast<unsigned char>(source_[at_ - 1])) != 0;
    ++at_;
    if (isInNumber) return;
    while (source_.at(at_) != '\'') at_ += source_[at_] == '\\' ? 2 : 1;
    ++at_;
    adjacent_ = false;
  }

  void TakeText() {
    if (at_ > 0 && source_[at_ - 1] == 'R')
      throw std::runtime_error(Place() + ": raw texts are not read here");
    if (!adjacent_) texts_.push_back({{}, Place()});
    std::string& text = texts_.back().text;
    for (++at_; source_.at(at_) != '"';) {
      if (source_[at_] == '\\') {
        TakeEscape(text);
      } else {
        text += source_[at_++];
      }
    }
    ++at_;
    adjacent_ = true;
  }

  void TakeEscape(std::string& text) {
    const char kind = source_.at(at_ + 1);
    at_ += 2;
    if (kind == 'u') {
      unsigned number = 0;
      std::from_chars(source_.data() + at_, source_.data() + at_ + 4, number, 16);
      AppendCharacter(text, static_cast<char32_t>(number));
      at_ += 4;
      return;
    }
    text += kind == 'n' ? '\n' : kind;
  }

  [[nodiscard]] std::string Place() const { return name_ + ":" + std::to_string(line_); }

  const std::string& source_;
  const std::string& name_;
  std::size_t at_ = 0;
  std::ptrdiff_t line_ = 1;
  bool adjacent_ = false;  ///< nothing but blanks and comments since the last text
  std::vector<SourceText> texts_;
};

std::string ContentOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

std::vector<SourceText> TextsOf(const std::string& source, const std::string& name) {
  return Reader(source, name).Read();
}

std::vector<SourceText> TextsOfStatementSources(const std::filesystem::path& root,
                                                const std::vector<std::string>& folders) {
  std::vector<SourceText> all;
  for (const std::string& folder : folders) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".cpp" && extension != ".h") continue;
      const std::string source = ContentOf(entry.path());
      if (source.find("SqlText") == std::string::npos && source.find("FixedSql") == std::string::npos)
        continue;
      const auto texts = TextsOf(source, std::filesystem::relative(entry.path(), root).generic_string());
      all.insert(all.end(), texts.begin(), texts.end());
    }
  }
  return all;
}

}  // namespace koru::test
