#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// The shape of a statement (StatementShape::text), written in the suite's server's dialect, as SQLite
/// understands it; the literals are its parameters from 1 on. Translated are `isnull(a,b)`, `delete` without
/// `from`, `select top n`, `in` selections (ReadInAsExists) and comparisons of barcodes (UseTrimmedIndex). A
/// text that is compared with an expression is given the collation KORU, which in SQLite only plain columns
/// have from their table. Throws DatabaseError for `order by` the number of a column.
[[nodiscard]] std::string TranslateShape(std::string_view shape, SqliteConnection& connection);

/// A statement and the selections of keys that were taken out of it (KeySelection.h), all in SQLite's
/// dialect.
struct ShapeOverKeys {
  struct Keys {
    std::string sql;
    std::string order;  ///< ` order by ...`, to be put behind it; empty where the order does not count
    std::vector<int> literals;  ///< which literals of the statement its parameters 1, 2, ... are; from 1
    int parameter = 0;          ///< the statement's parameter that takes the KeyRanks
  };
  std::string sql;
  std::vector<Keys> selections;  ///< none: `sql` is that of TranslateShape
};

/// As TranslateShape, for a shape that is run many times over the same data: the selections of keys that it
/// shares with its next runs are taken out of it.
[[nodiscard]] ShapeOverKeys TranslateOverKeys(std::string_view shape, SqliteConnection& connection);

}  // namespace koru
