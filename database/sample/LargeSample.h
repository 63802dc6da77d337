#pragma once

#include <functional>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/LargeDocuments.h"

namespace koru::sample {

/// Fills empty tables, which should not have their indexes yet, with a large company: people and units of the
/// standard sample, twenty stores, and goods, documents and one temporary counting of the size `counts`.
/// `report` is called with the percentage done, from 0 to 100.
void FillLargeSample(SqliteConnection& connection, const LargeCounts& counts,
                     const std::function<void(int)>& report);

}  // namespace koru::sample
