#pragma once

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::sample {

// The stores that hold goods; none has children.
inline constexpr int kDryFoodStore = 3;  ///< the default store
inline constexpr int kColdStore = 4;
inline constexpr int kCleaningStore = 5;
inline constexpr int kHardwareStore = 6;
inline constexpr int kFirstShop = 8;
inline constexpr int kSecondShop = 9;
inline constexpr int kReturnsStore = 10;  ///< holds the special goods alone

inline constexpr int kStoreCount = 10;  ///< keys 1 to 10

/// The shelf of a hall that goods of one of the four main stores lie on; `shelf` is 0 to 5.
[[nodiscard]] int ShelfOf(int store, int shelf);

/// The tree of stores and the tree of storage places.
void WriteStores(SqliteConnection& connection);

}  // namespace koru::sample
