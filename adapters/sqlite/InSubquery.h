#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// The positions and names of one `X in (select key from T where condition)`.
struct InSubquery {
  std::size_t begin = 0;      ///< of X, or of its qualifier
  std::size_t condition = 0;  ///< after the inner `where`
  std::size_t close = 0;      ///< the closing parenthesis
  std::string column;         ///< X
  std::string qualifier;      ///< the table in `table.X`; empty for plain `X`
  std::string table;          ///< T
  std::string key;
  std::string outer;  ///< the table of X
};

/// The subquery whose `in` is the token at `in`, provided that a lookup by key finds the same rows: the term
/// is joined to its condition by `and` only, X is a column of the only table there, T is another table, and
/// `key` is its integer primary key.
[[nodiscard]] std::optional<InSubquery> ReadInSubquery(const StatementTokens& tokens, std::size_t in,
                                                       SqliteConnection& connection);

}  // namespace koru
