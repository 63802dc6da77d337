#pragma once

#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/StatementTokens.h"

namespace koru {

/// A selection of keys that was taken out of a statement: "the registered documents of these stores in this
/// period" is the same for every line of a calculation, and is found once for all of them (KeyRanks).
struct KeySelection {
  std::string table;          ///< the one that the keys are of
  StatementTokens tokens;     ///< a statement of its own, whose literals are numbered from 1
  StatementTokens order;      ///< its `order by`; nothing where the order does not count
  std::vector<int> literals;  ///< which literals of the statement those are
  int parameter = 0;          ///< the parameter of the statement that takes the KeyRanks
};

/// Takes the selections of keys out of a statement:
///
/// - `X in (select key from T where ...)`, where ReadInSelection knows it, becomes `KoruRank(?n,D.X)`;
/// - in `select ... from D,T where key=X and (parts of T) and (parts of D) order by C`, where nothing else
///   of T is asked for, T goes, `key=X` becomes `KoruRank(?n,D.X)`, and so does the order. Among equal C the
///   lowest key comes first.
///
/// X is a column of D that holds whole numbers, and `key` is T's whole-number primary key. What has neither
/// of these forms stays as it is. A selection that looks at the rows around it cannot be prepared by itself:
/// then the statement has to be run as it was.
[[nodiscard]] std::vector<KeySelection> TakeKeySelections(StatementTokens& tokens,
                                                          SqliteConnection& connection);

}  // namespace koru
