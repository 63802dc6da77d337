#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// A word of a template's line: as it stands, or a text that stood in double quotes.
struct TemplateWord {
  std::string text;
  bool quoted = false;
};

/// The words of one line, without its comment. In quotes, \" and \\ are a quote and a backslash. `file` and
/// `line` are for the InputError of a text that is not closed.
[[nodiscard]] std::vector<TemplateWord> TemplateWords(std::string_view line, const std::string& file,
                                                      int number);

}  // namespace koru
