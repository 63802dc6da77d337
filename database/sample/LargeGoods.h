#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleRandom.h"

namespace koru::sample {

/// A good of the large samples, and what its documents add up to while they are written.
struct LargeGood {
  std::string barcode;
  std::string code;
  std::string name;
  int unit = 0;  ///< the base unit that everything counts it in
  int price = 0;
  double total = 0;  ///< registered stock of all stores and years
  double books = 0;  ///< registered stock of the central store and its children in the last year
  std::optional<double> dispatchRate;  ///< of the latest such dispatch with a value
  std::optional<double> receiptRate;   ///< of the latest such receipt with a value
};

/// Makes `count` goods, in the order of their barcodes. Writes nothing.
[[nodiscard]] std::vector<LargeGood> MakeLargeGoods(Random& random, int count);

/// Writes the goods with their stock of all stores, and their sale units: one in sixty has none.
void WriteLargeGoods(SqliteConnection& connection, const std::vector<LargeGood>& goods);

}  // namespace koru::sample
