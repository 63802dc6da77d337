#pragma once

#include <string>

#include "platform/sql/Database.h"

namespace koru::test {

/// All rows of all of the suite's tables, for comparing before and after. Texts are quoted, days are texts;
/// the order of rows does not count.
[[nodiscard]] std::string DumpTables(Database& database);

}  // namespace koru::test
