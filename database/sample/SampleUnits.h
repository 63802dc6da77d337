#pragma once

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::sample {

// Units: base units below 10, units made of them above.
inline constexpr int kPiece = 1;
inline constexpr int kKilogram = 2;
inline constexpr int kLitre = 3;
inline constexpr int kMetre = 4;
inline constexpr int kPackOf6 = 11;
inline constexpr int kCartonOf12 = 12;
inline constexpr int kCartonOf24 = 13;
inline constexpr int kGram = 21;
inline constexpr int kBagOf10Kilograms = 22;
inline constexpr int kMillilitre = 31;
inline constexpr int kRollOf50Metres = 41;
inline constexpr int kBranch = 42;  ///< has no factor

/// The number of base units in a unit that goods are delivered in; 1 for a base unit.
[[nodiscard]] int BaseUnitsIn(int unit);

/// The units and their tree.
void WriteUnits(SqliteConnection& connection);

}  // namespace koru::sample
