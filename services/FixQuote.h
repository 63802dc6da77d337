#pragma once

#include <string>
#include <string_view>

namespace koru {

/// `text` with every apostrophe doubled. Only the texts that a statement's rule names pass through it: the
/// notes of a counting, and the name and notes patterns of the goods search.
[[nodiscard]] std::string FixQuote(std::string_view text);

}  // namespace koru
