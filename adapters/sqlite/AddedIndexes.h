#pragma once

#include <string_view>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// The indexes that version 0.5 added to the schema: the rate of a good, by its barcode. Without them SQLite
/// reads all document lines for every rate.
inline constexpr std::string_view kAddedIndexes =
    "create index if not exists ixInventoryReceiptDetail_Rate on tblInventoryReceiptDetail"
    " (Barcode, ReceiptID, Value);\n"
    "create index if not exists ixInventoryDispatchDetail_Rate on tblInventoryDispatchDetail"
    " (Barcode, DispatchID, Value);\n";

/// Creates the indexes of `kAddedIndexes` that a file of an earlier version does not have, in one
/// transaction. Takes about three seconds per million lines, once per file, and microseconds if the file has
/// them.
///
/// Never fails and never waits: while another program writes, on a full disk, and where the tables are
/// missing, the file stays as it is, and statements run without the indexes. Must not be called inside a
/// transaction.
void AddMissingIndexes(SqliteConnection& connection) noexcept;

}  // namespace koru
