#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// A counting as the host's list shows it.
struct CountingRow {
  std::int32_t id = 0;
  std::optional<std::int32_t> code;  ///< the final number; none: temporary
  std::string manualCode;
  std::string store;
  std::string createDate;  ///< dates in the Solar calendar, `1404/01/15`
  std::string fromDate;
  std::string toDate;
  std::string notes;
  std::string creator;
};

/// All countings of a database, the newest first. Throws DatabaseError.
[[nodiscard]] std::vector<CountingRow> ReadCountings(Database& database);

}  // namespace koru
