#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleRandom.h"

namespace koru::sample {

struct Good {
  std::string barcode;
  int store;          ///< the main store that keeps it
  int unit;           ///< the base unit that documents count it in
  int packing;        ///< the unit that suppliers deliver in; 0 when it is the base unit
  std::int64_t cost;  ///< in Rials per base unit, at the beginning of 1403
};

/// The Iranian barcode of a good: "626", five digits of the maker, four of the good, and the check digit of
/// EAN-13.
[[nodiscard]] std::string Barcode(int maker, int item);

/// Types, currencies, groups and goods with their prices and sale units. Returns the goods that move, ordered
/// by their barcode.
[[nodiscard]] std::vector<Good> WriteGoods(SqliteConnection& connection, Random& random);

}  // namespace koru::sample
