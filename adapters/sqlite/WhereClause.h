#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// The place of the `where` whose condition has [begin, end) as one of its parts, joined to the others by
/// `and` alone, so that no row is found for which the part is not true; none where that is not so.
[[nodiscard]] std::optional<std::size_t> WhereOfPart(const StatementTokens& tokens, std::size_t begin,
                                                     std::size_t end);

/// The tables that the condition of the `where` at that place is about, as they are named in `from A,B` or
/// `delete A`; empty where they are joined in another way or renamed.
[[nodiscard]] std::vector<std::string> TablesOf(const StatementTokens& tokens, std::size_t where);

}  // namespace koru
