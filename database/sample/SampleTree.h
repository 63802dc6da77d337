#pragma once

#include <span>
#include <string>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru::sample {

/// Fills a closure table: for each node one row for every descendant. `nodes` are pairs of a node's key
/// and that of its parent (0 for none), each parent before its children.
void WriteClosure(SqliteConnection& connection, const std::string& table,
                  std::span<const std::pair<int, int>> nodes);

}  // namespace koru::sample
