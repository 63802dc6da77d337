#include "tests/statements/SourceTexts.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

#include "platform/text/Text.h"

namespace koru::test {
namespace {

class Reader {
 public:
  Reader(const std::string& source, const std::string& file) : source_(source), file_(file) {}

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

  /// Moves past what begins and ends so, if it is here; a line end at its end is left.
  bool Skipped(const std::string& begin, const std::string& end) {
    if (source_.compare(at_, begin.size(), begin) != 0) return false;
    const std::size_t found = std::min(source_.find(end, at_ + begin.size()), source_.size());
    MoveTo(end == "\n" ? found : std::min(found + end.size(), source_.size()));
    return true;
  }

  void MoveTo(std::size_t place) {
    line_ += std::count(source_.begin() + static_cast<std::ptrdiff_t>(at_),
                        source_.begin() + static_cast<std::ptrdiff_t>(place), '\n');
    at_ = place;
  }

  void TakeCharacter() {
    // An apostrophe between digits separates thousands.
    const bool isInNumber = at_ > 0 && std::isdigit(static_cast<unsigned char>(source_[at_ - 1])) != 0;
    ++at_;
    if (isInNumber) return;
    while (source_.at(at_) != '\'') at_ += source_[at_] == '\\' ? 2 : 1;
    ++at_;
    adjacent_ = false;
  }

  void TakeText() {
    if (!adjacent_) texts_.push_back({{}, file_, line_, at_, at_});
    std::string& text = texts_.back().text;
    if (at_ > 0 && source_[at_ - 1] == 'R') {
      TakeRaw(text);
    } else {
      for (++at_; source_.at(at_) != '"';) {
        if (source_[at_] == '\\') {
          TakeEscape(text);
        } else {
          text += source_[at_++];
        }
      }
      ++at_;
    }
    texts_.back().end = at_;
    adjacent_ = true;
  }

  void TakeRaw(std::string& text) {
    const std::size_t begin = source_.find('(', at_) + 1;
    const std::string close = ")" + source_.substr(at_ + 1, begin - at_ - 2) + "\"";
    const std::size_t end = source_.find(close, begin);
    text += source_.substr(begin, end - begin);
    MoveTo(end + close.size());
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
    text += kind == 'n' ? '\n' : kind == 't' ? '\t' : kind;
  }

  const std::string& source_;
  const std::string& file_;
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

std::vector<SourceText> TextsOf(const std::string& source, const std::string& file) {
  return Reader(source, file).Read();
}

std::vector<SourceFile> SourcesIn(const std::filesystem::path& root,
                                  const std::vector<std::string>& folders) {
  std::vector<SourceFile> files;
  for (const std::string& folder : folders) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root / folder)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".cpp" && extension != ".h") continue;
      files.push_back(
          {std::filesystem::relative(entry.path(), root).generic_string(), ContentOf(entry.path())});
    }
  }
  std::sort(files.begin(), files.end(),
            [](const SourceFile& left, const SourceFile& right) { return left.name < right.name; });
  return files;
}

std::vector<SourceText> TextsOfStatementSources(const std::filesystem::path& root,
                                                const std::vector<std::string>& folders) {
  std::vector<SourceText> all;
  for (const SourceFile& file : SourcesIn(root, folders)) {
    if (file.content.find("SqlText") == std::string::npos &&
        file.content.find("FixedSql") == std::string::npos)
      continue;
    const auto texts = TextsOf(file.content, file.name);
    all.insert(all.end(), texts.begin(), texts.end());
  }
  return all;
}

}  // namespace koru::test
