#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace koru::test {

/// A text constant of a source file; adjacent ones are one, as the compiler takes them.
struct SourceText {
  std::string text;
  std::string place;  ///< `file:line`
};

/// The text constants of a C++ source, without those of `#include` lines and comments, escapes resolved.
[[nodiscard]] std::vector<SourceText> TextsOf(const std::string& source, const std::string& name);

/// Those of all sources in these folders of `root` that build statements (SqlText or FixedSql occurs in
/// them).
[[nodiscard]] std::vector<SourceText> TextsOfStatementSources(const std::filesystem::path& root,
                                                              const std::vector<std::string>& folders);

}  // namespace koru::test
