#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/statements/SourceTexts.h"

namespace koru::test {

/// A Persian text that the program shows. Where it is put together of constants and values, each value is
/// "…". Runs of blanks and line ends are one blank, and direction marks are left out.
struct SeenText {
  std::string text;
  std::string file;

  friend bool operator==(const SeenText&, const SeenText&) = default;
};

/// Those of one source, each once, in their order. A text of more than four lines is a page and no message.
[[nodiscard]] std::vector<SeenText> SeenTextsOf(const SourceFile& source);

/// Those of all sources in these folders of `root`, file by file.
[[nodiscard]] std::vector<SeenText> SeenTextsIn(const std::filesystem::path& root,
                                                const std::vector<std::string>& folders);

/// The English of each Persian text, by the text: a file of lines `Persian<tab>English`. Throws
/// std::runtime_error for a line that is none, and for a text that has two.
[[nodiscard]] std::map<std::string, std::string> ReadGlosses(const std::filesystem::path& file);

}  // namespace koru::test
