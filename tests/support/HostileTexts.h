#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace koru {

/// Several hundred different texts that try to be more than a text once they stand in a statement: odd and
/// doubled apostrophes, comments, semicolons, wildcards, brackets, quotation marks of other scripts.
[[nodiscard]] std::vector<std::string> HostileTexts();

/// Whether the text, written as it is between two apostrophes, is the content of one literal: no run of
/// apostrophes in it has an odd length.
[[nodiscard]] bool StaysInLiteral(std::string_view text);

/// What such a literal means: of each two apostrophes in a row, one.
[[nodiscard]] std::string MeaningOf(std::string_view text);

}  // namespace koru
