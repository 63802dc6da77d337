#pragma once

#include <map>
#include <optional>
#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "platform/text/Date.h"

namespace koru::sample {

/// A period; both dates are inclusive.
struct Period {
  Date from;
  Date to;
};

inline constexpr int kAllStores = 0;

/// Quantity by barcode: registered receipts less registered dispatches of a store without children, or of all
/// stores. Goods without documents are not in it.
[[nodiscard]] std::map<std::string, double> BookStock(SqliteConnection& connection, int store,
                                                      const Period& period);

/// The latest value above 0 of a good in registered dispatches of the store, else in its registered receipts;
/// empty when there is neither. Of several on one date, that with the highest key; of several lines of one
/// document, the last one.
[[nodiscard]] std::optional<double> LatestRate(SqliteConnection& connection, int store,
                                               const std::string& barcode, const Period& period);

/// Sets each good's stored total over all stores; it stays NULL for goods without documents.
void WriteTotals(SqliteConnection& connection, const Period& period);

}  // namespace koru::sample
