#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace koru::test {

/// A text constant of a source file; adjacent ones are one, as the compiler takes them.
struct SourceText {
  std::string text;
  std::string file;  ///< below the root, with slashes
  std::ptrdiff_t line = 1;
  std::size_t begin = 0;  ///< in bytes of the source, at the opening quotation mark
  std::size_t end = 0;    ///< one past the closing one

  /// `file:line`
  [[nodiscard]] std::string Place() const { return file + ":" + std::to_string(line); }
};

/// The text constants of a C++ source, without those of `#include` lines and comments, escapes resolved.
[[nodiscard]] std::vector<SourceText> TextsOf(const std::string& source, const std::string& file);

struct SourceFile {
  std::string name;  ///< below the root, with slashes
  std::string content;
};

/// The sources and headers in these folders of `root`, in the order of their names.
[[nodiscard]] std::vector<SourceFile> SourcesIn(const std::filesystem::path& root,
                                                const std::vector<std::string>& folders);

/// The texts of those sources that build statements (SqlText or FixedSql occurs in them).
[[nodiscard]] std::vector<SourceText> TextsOfStatementSources(const std::filesystem::path& root,
                                                              const std::vector<std::string>& folders);

}  // namespace koru::test
