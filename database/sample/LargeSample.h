#pragma once

#include <functional>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/LargeDocuments.h"

namespace koru::sample {

/// Fills empty tables, which should not have their indexes yet, with a large company: people and units of the
/// standard sample, twenty stores, and as many goods, documents and lines of one temporary counting as
/// `counts` says. `report` is called with per cent from 0 to 100.
void FillLargeSample(SqliteConnection& connection, const LargeCounts& counts,
                     const std::function<void(int)>& report);

}  // namespace koru::sample
