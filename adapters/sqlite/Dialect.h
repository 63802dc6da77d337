#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// Translates a normalized statement (NormalizedStatement::text) from the suite's server's dialect to
/// SQLite's; its literals become the parameters ?1, ?2, ... Rewrites `isnull(a,b)`, `delete` without `from`
/// and `select top n`. A text literal compared with an expression gets the collation KORU, because in SQLite
/// only a plain column has the collation of its table. Throws DatabaseError for `order by` with the number of
/// a column.
///
/// README.md shows statements before and after.
[[nodiscard]] std::string Translate(std::string_view normalized);

/// As Translate, and completes the order of document lines (LineDocumentJoin.h), which is then the same in
/// every run, and with TranslateHoisted.
[[nodiscard]] std::string TranslateOrdered(std::string_view normalized, SqliteConnection& connection);

/// A statement in SQLite's dialect and the subqueries hoisted out of it (HoistedSubquery.h).
struct HoistedStatement {
  struct Subquery {
    std::string sql;            ///< selects keys
    std::string order;          ///< ` order by ...`, to be appended to `sql`; empty: any order serves
    std::vector<int> literals;  ///< for each of its parameters, the number of the statement's literal, from 1
    int parameter = 0;          ///< the statement's parameter that takes the RankedKeySet
  };
  std::string sql;
  std::vector<Subquery> subqueries;  ///< empty: `sql` is that of TranslateOrdered
};

/// As TranslateOrdered, for a statement that runs many times over the same data: hoists the subqueries whose
/// result is the same for each run.
[[nodiscard]] HoistedStatement TranslateHoisted(std::string_view normalized, SqliteConnection& connection);

}  // namespace koru
