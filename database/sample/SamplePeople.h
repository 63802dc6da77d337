#pragma once

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::sample {

inline constexpr int kUserCount = 12;     ///< keys 1 to 12
inline constexpr int kDepartedUser = 13;  ///< has left: documents name the key, but the user no longer exists

/// The users, what each may do, and the stores each may work in.
void WritePeople(SqliteConnection& connection);

}  // namespace koru::sample
