#pragma once

#include <functional>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/LargeGoods.h"
#include "database/sample/SampleRandom.h"
#include "database/sample/SampleStock.h"

namespace koru::sample {

/// The number of rows of a large sample.
struct LargeCounts {
  int goods;
  int documents;      ///< receipts and dispatches together; even
  int documentLines;  ///< of all documents, ten each on average
  int countingLines;
};

// Twenty stores: three trees and one store without parent or children. The counting is of the first tree.
inline constexpr int kLargeStores = 20;
inline constexpr int kCentralStore = 1;
inline constexpr int kLastOfCentral = 9;  ///< the children of the central store are 2 to this one

/// The period from the first day of the last year to the date of the sample (kSampleToday).
[[nodiscard]] Period LargePeriod();

/// Writes the stores, their tree, and the users' permissions for them.
void WriteLargeStores(SqliteConnection& connection);

/// Writes the receipts and dispatches of three years by ascending date; nine in ten are registered. They are
/// distributed unevenly over stores and goods. Adds each document's quantities to `goods`. `done` is called
/// with the percentage of documents written.
void WriteLargeDocuments(SqliteConnection& connection, Random& random, const LargeCounts& counts,
                         std::vector<LargeGood>& goods, const std::function<void(int)>& done);

}  // namespace koru::sample
