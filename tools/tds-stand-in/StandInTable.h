#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/tds-stand-in/ServerBatch.h"

namespace koru::test {

/// A table of the suite's server, and what makes it in the embedded engine: whole numbers of 32 bits, reals,
/// days (ServerDays.h), texts of at most so many UTF-16 units in the collation KORU, NULL where it may be,
/// defaults, keys, numbers that are never given again, and columns that are computed from others.
///
/// Stricter than the server: a text that is too long only by the blanks at its end is refused as well, and a
/// text is no whole number or real even if it is empty. A bit keeps the number that it is given.
struct StandInTable {
  std::string name;
  std::string identity;  ///< the column that the server numbers; empty when there is none
  std::map<std::string, std::string> computed;  ///< each column in lower case, and its expression
  bool isClustered = false;                     ///< by its primary key or an index
  std::vector<std::string> statements;          ///< in the engine's dialect, in their order
};

/// Reads a `create table` batch that breaks none of the server's rules (BrokenRules). Throws NotKnownHere.
[[nodiscard]] StandInTable ReadTable(const ServerBatch& batch);

}  // namespace koru::test
