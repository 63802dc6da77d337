#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace koru {

// Texts in the fields of a line, for files of the program's own: fields are separated by tabs, and `\\`, `\t`
// and `\n` are escapes in them, so that a line feed ends the line and nothing else.

/// Appends a tab and the field to a line.
void AppendTabField(std::string& line, std::string_view text);

/// The fields of a line without its line feed; nothing when an escape in it is none of those above.
[[nodiscard]] std::optional<std::vector<std::string>> TabFields(std::string_view line);

}  // namespace koru
