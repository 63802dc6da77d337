#pragma once

#include <string>
#include <string_view>

namespace koru {

/// Returns `text` with every apostrophe doubled. By the business rule, only three texts are quoted so: the
/// notes of a counting, and the name and notes patterns of the goods search.
[[nodiscard]] std::string FixQuote(std::string_view text);

/// Whether a text, written as it is between apostrophes, would end its literal: of each two apostrophes in a
/// row, one is meant; a single one ends it.
[[nodiscard]] bool HasOpenApostrophe(std::string_view text);

}  // namespace koru
