#pragma once

#include <cstdint>

namespace koru {

/// What marks a database file as one of ours (`PRAGMA application_id`): "Koru".
inline constexpr std::int32_t kApplicationId = 0x4B6F7275;

/// The version of tables and views that the program works with (`PRAGMA user_version`). It rises when they
/// change.
inline constexpr std::int32_t kSchemaVersion = 1;

}  // namespace koru
