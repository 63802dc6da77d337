#pragma once

#include <cstdint>

namespace koru {

/// Identifies the suite's database files (`PRAGMA application_id`): "Koru".
inline constexpr std::int32_t kApplicationId = 0x4B6F7275;

/// The version of tables and views (`PRAGMA user_version`); incremented when they change.
inline constexpr std::int32_t kSchemaVersion = 1;

}  // namespace koru
