#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::sample {

/// The tree of goods groups, the types of goods and the currencies.
void WriteGroups(SqliteConnection& connection);

/// The code of a group, two digits a level; empty for a key without a group.
[[nodiscard]] std::string GroupCode(int group);

inline constexpr int kTradeGoods = 1;     ///< type: bought and sold
inline constexpr int kOwnUse = 2;         ///< type: used up by the company
inline constexpr int kCurrencyCount = 3;  ///< keys 1 to 3

}  // namespace koru::sample
