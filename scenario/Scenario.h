#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// One word of a line: a bare word, or a text that was in double quotes (here without them, its escapes
/// resolved).
struct ScenarioWord {
  std::string text;
  bool quoted = false;

  friend bool operator==(const ScenarioWord&, const ScenarioWord&) = default;
};

/// One step of a scenario, with the `|` lines that belong to it.
struct ScenarioStep {
  std::size_t pattern = 0;  ///< which of the reader's patterns the step matches
  int line = 0;             ///< from 1
  std::vector<ScenarioWord> words;
  std::vector<std::vector<ScenarioWord>> rows;

  /// The word at `index`, counted from 0. The pattern of the step guarantees that it exists.
  [[nodiscard]] const std::string& Text(std::size_t index) const { return words.at(index).text; }
  /// The same as a whole number.
  [[nodiscard]] std::int32_t Number(std::size_t index) const;
};

/// What one user does and sees, step by step.
struct Scenario {
  std::string file;  ///< the name given to the reader, for errors
  std::vector<ScenarioStep> steps;
};

/// Reads a scenario from its text. The pattern of a step is the first of `patterns` that it matches. A
/// pattern is words separated by blanks: TEXT (a quoted text), NUMBER (32 bits), DATE (yyyy/mm/dd, an
/// existing day of the Solar Hijri calendar), NAME (a control, form or property, also form.control), KEY (see
/// ParseKey), ROWS (at the end: `|` lines may follow), or the word itself; `a|b` accepts either, and a
/// word that ends in `...` may be repeated. Throws InputError naming file and line, also for a step that
/// matches no pattern.
[[nodiscard]] Scenario ParseScenario(std::string_view text, const std::string& file,
                                     std::span<const std::string_view> patterns);

/// The same from a file; throws InputError naming the file when it cannot be read.
[[nodiscard]] Scenario ReadScenario(const std::filesystem::path& file,
                                    std::span<const std::string_view> patterns);

/// `text` as a scenario writes it: in double quotes, with escapes for invisible characters.
[[nodiscard]] std::string QuotedForScenario(std::string_view text);

/// The place of a step, for errors: `file:line`.
[[nodiscard]] std::string ScenarioPlace(const std::string& file, int line);

}  // namespace koru
