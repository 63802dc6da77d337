#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// The places and names of one `X in (select key from T where condition)`.
struct InSelection {
  std::size_t begin = 0;      ///< of X, or of the table that qualifies it
  std::size_t condition = 0;  ///< behind the inner where
  std::size_t close = 0;      ///< the closing parenthesis
  std::string column;         ///< X
  std::string qualifier;      ///< the table that X is written with; empty when there is none
  std::string table;          ///< T
  std::string key;
  std::string outer;  ///< the table that X is a column of
};

/// The selection whose `in` stands at that place, when looking documents up by their key finds the same rows:
/// its condition is joined by `and` alone, X is a column of the one table that is read there, T is another
/// table, and `key` is its whole-number primary key.
[[nodiscard]] std::optional<InSelection> ReadInSelection(const StatementTokens& tokens, std::size_t in,
                                                         SqliteConnection& connection);

}  // namespace koru
