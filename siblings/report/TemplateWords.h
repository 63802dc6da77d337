#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// A word of a template's line, or a text in double quotes.
struct TemplateWord {
  std::string text;
  bool quoted = false;
};

/// The words of one line, without its comment. In quotes, \" and \\ are escapes. `file` and `number` (the
/// line) are for the InputError of an unclosed quote.
[[nodiscard]] std::vector<TemplateWord> TemplateWords(std::string_view line, const std::string& file,
                                                      int number);

}  // namespace koru
