#pragma once

#include <chrono>

#include "platform/sql/Database.h"

namespace koru {

/// What the distance to a database and its speed mean for a user.
struct CalculationTime {
  std::chrono::microseconds roundTrip{};  ///< of the shortest statement; the median of several
  std::chrono::milliseconds lines50{};    ///< of the statements that a calculation sends for 50 lines
  std::chrono::seconds full{};            ///< of a calculation of 32,767 lines, extrapolated from these 50
};

/// Measures with the goods that the database has, over all its documents. Changes nothing. Throws
/// DatabaseError.
[[nodiscard]] CalculationTime MeasureCalculation(Database& database);

}  // namespace koru
