#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// A file of settings, UTF-8: `[section]` lines, `key=value` lines, and comments after `;`. A value that
/// begins or ends with a blank or a quote is in double quotes; inside them `\"`, `\\` and `\n` are escapes.
/// Comments, order and unknown keys are kept when the file is written.
class IniFile {
 public:
  /// A missing file is empty. Throws InputError naming file and line when a line cannot be read, or
  /// the file when it cannot.
  [[nodiscard]] static IniFile Read(const std::filesystem::path& file);

  /// Renames a file that cannot be read to `<name>.damaged`, or `.damaged-2` and so on where the name is
  /// taken, and returns its new name. Throws InputError when that fails.
  static std::filesystem::path SetAside(const std::filesystem::path& file);

  /// The value of a key; names are compared exactly. No value when it is missing.
  [[nodiscard]] std::optional<std::string> Get(std::string_view section, std::string_view key) const;
  void Set(std::string_view section, std::string_view key, std::string value);
  void Remove(std::string_view section, std::string_view key);

  /// The place of a key, for errors: file and line.
  [[nodiscard]] std::string PlaceOf(std::string_view section, std::string_view key) const;

  /// Writes the file, readable by its owner alone, so that a crash or a power cut leaves the old file or the
  /// new one (WriteWhole). Throws InputError naming the file.
  void Write() const;

 private:
  struct Line {
    std::string section;
    std::string key;   ///< empty: a comment, an empty line or the section's own line
    std::string text;  ///< the value of the key, or else the line itself
  };

  explicit IniFile(std::filesystem::path file) : file_(std::move(file)) {}
  void ReadLine(std::string_view text, std::string& section);
  [[nodiscard]] std::vector<Line>::const_iterator Find(std::string_view section, std::string_view key) const;

  std::filesystem::path file_;
  std::vector<Line> lines_;
};

}  // namespace koru
