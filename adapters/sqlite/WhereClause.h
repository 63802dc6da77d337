#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// The index of the `where` whose condition has [begin, end) as a term joined to the others by `and` only, so
/// that each row found satisfies the term; nothing otherwise.
[[nodiscard]] std::optional<std::size_t> WhereOfTerm(const StatementTokens& tokens, std::size_t begin,
                                                     std::size_t end);

/// The tables of the statement with its `where` at that index, as named in `from A,B` or `delete A`; empty if
/// they are joined in another way or have aliases.
[[nodiscard]] std::vector<std::string> TablesOf(const StatementTokens& tokens, std::size_t where);

}  // namespace koru
