#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace koru::test {

/// A piece of text between two tags of a page of the manual.
struct ManualText {
  /// What the innermost marked element says the text is.
  enum class Kind { Prose, Caption, Key, Code, Data };

  std::string text;
  Kind kind = Kind::Prose;
  std::string section;  ///< the id of the heading above; empty before the first
};

/// A page of the manual.
struct ManualPage {
  std::string name;  ///< the file's name
  std::vector<ManualText> texts;
  std::vector<std::string> ids;
  std::vector<std::string> links;
  std::vector<std::string> pictures;
  std::string error;  ///< a tag that is not closed in order; empty when there is none
};

/// All pages of docs/fa, by name.
[[nodiscard]] std::vector<ManualPage> ManualPages();

/// A page from its text.
[[nodiscard]] ManualPage ReadManualPage(const std::string& name, const std::string& html);

/// The lines of a file.
[[nodiscard]] std::vector<std::string> LinesOf(const std::filesystem::path& file);

}  // namespace koru::test
