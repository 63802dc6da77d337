#pragma once

#include <functional>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/LargeGoods.h"
#include "database/sample/SampleRandom.h"
#include "database/sample/SampleStock.h"

namespace koru::sample {

/// How much a large sample holds.
struct LargeCounts {
  int goods;
  int documents;      ///< receipts and dispatches together; even
  int documentLines;  ///< of all documents, ten each on average
  int countingLines;
};

// The tree of twenty stores: three trees and a store by itself. The counting is one of the first tree.
inline constexpr int kLargeStores = 20;
inline constexpr int kCentralStore = 1;
inline constexpr int kLastOfCentral = 9;  ///< the central store's children are the stores 2 to this

/// The last of the three years, from its first day to the day of the sample.
[[nodiscard]] Period LargePeriod();

/// The stores and their tree, and who may work in them.
void WriteLargeStores(SqliteConnection& connection);

/// Receipts and dispatches of three years in the order of their days, nine in ten registered. Stores and
/// goods have very different shares of them. `goods` learn what the documents add up to; `done` is called
/// with the share of documents written, in per cent.
void WriteLargeDocuments(SqliteConnection& connection, Random& random, const LargeCounts& counts,
                         std::vector<LargeGood>& goods, const std::function<void(int)>& done);

}  // namespace koru::sample
