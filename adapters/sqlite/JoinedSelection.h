#pragma once

#include <optional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// A `select ... from D,T where key=X and ... order by C` of lines D and their documents T, taken apart so
/// that the keys of the documents can be selected by themselves.
struct JoinedSelection {
  std::string lines;            ///< D
  std::string documents;        ///< T
  std::string column;           ///< X
  StatementTokens beforeWhere;  ///< `select ... from D`
  StatementTokens ofLines;  ///< the parts of the condition that are about D, each with its `and` before it
  StatementTokens keys;     ///< `select key from T where (parts about T)`
  StatementTokens order;    ///< `order by C,key`, or nothing
};

/// None when the statement has another form: when a part or a column asked for is about both tables, when T
/// is asked for more than its key, condition and order, when the parts are joined by anything but `and`, or
/// when X and `key` are not a column of whole numbers and a whole-number primary key.
[[nodiscard]] std::optional<JoinedSelection> ReadJoinedSelection(const StatementTokens& tokens,
                                                                 SqliteConnection& connection);

}  // namespace koru
