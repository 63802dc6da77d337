#pragma once

#include <map>
#include <string>
#include <vector>

#include "tools/tds-stand-in/ServerBatch.h"

namespace koru::test {

/// A table of the suite's server, and the statements that make it in the embedded engine: whole numbers of 32
/// bits, reals, dates (ServerDays.h), texts of limited length in the collation KORU, NULL where it is
/// permitted, defaults, keys, identities that are never reused, and computed columns.
///
/// Stricter than the server: a text that is too long only by trailing blanks is refused as well, and so is an
/// empty text for a number. Less strict: a bit keeps any number.
struct StandInTable {
  std::string name;
  std::string identity;  ///< the column that the server numbers; empty when there is none
  std::map<std::string, std::string> computed;  ///< each column in lower case, and its expression
  bool isClustered = false;                     ///< by its primary key or an index
  std::vector<std::string> statements;          ///< in the engine's dialect, in order
};

/// Reads a `create table` batch that breaks none of the server's rules (BrokenRules). Throws NotKnownHere.
[[nodiscard]] StandInTable ReadTable(const ServerBatch& batch);

}  // namespace koru::test
