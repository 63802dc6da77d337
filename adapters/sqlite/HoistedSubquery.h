#pragma once

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// A subquery that selects keys and was taken out of its statement. "The registered documents of these stores
/// in this period" is the same for every line of a calculation: it runs once, and its keys are looked up in a
/// RankedKeySet.
struct HoistedSubquery {
  StatementTokens tokens;     ///< a statement of its own, its literals numbered from 1
  StatementTokens order;      ///< its `order by`; empty: any order serves
  std::vector<int> literals;  ///< for each of its literals, the number that it had in the statement
  int parameter = 0;          ///< the parameter of the statement that takes the RankedKeySet
};

/// Hoists the subqueries of a statement and returns them; `tokens` become the rest of the statement:
///
/// - `X in (select key from T where ...)` (InSubquery) becomes `koru_key_rank(?n,D.X)`;
/// - a join of lines with their documents (LineDocumentJoin) becomes a select from the lines alone, with
///   `koru_key_rank(?n,D.X)` in place of the join's condition and of the order.
///
/// In a hoisted subquery, `(S=?n or S in (select ...))` becomes `(S in (select ?n union all select ...))`
/// where S is an integer column of T: SQLite then searches its index of S once.
///
/// X is an integer column of D, `key` the integer primary key of T. A statement of another form remains
/// unchanged. Whether a subquery is correlated is not checked: such a one fails to prepare, and then the
/// statement must run as it was.
[[nodiscard]] std::vector<HoistedSubquery> HoistSubqueries(StatementTokens& tokens,
                                                           SqliteConnection& connection);

}  // namespace koru
