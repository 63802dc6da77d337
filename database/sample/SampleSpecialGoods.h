#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleDocuments.h"

namespace koru::sample {

/// Seven goods of the store for returned goods. Each has few documents and shows one case of the rules for
/// book stock and rate.
enum class SpecialGood {
  StockOf5 = 1,         ///< received 8, dispatched 3, at a value of 2: book stock 5, rate 2
  BelowZero,            ///< dispatched 4, not received: book stock -4
  NoDocuments,          ///< book stock 0, no rate, no sale unit
  RateOfReceipt,        ///< its only dispatch has the value 0, its later receipt 1500: book stock 9
  NotRegistered,        ///< has only documents that are not registered: book stock 0, no rate
  BlanksAroundBarcode,  ///< in one receipt its barcode has blanks around it: book stock 7; the rate is that
                        ///< of the other receipt, 900
  Tenths = 10  ///< received 0.1 and 0.2, dispatched 0.3: book stock 0, which sums of doubles miss. Its
               ///< barcode has another prefix, so that a search for the other six does not find it.
};

[[nodiscard]] std::string BarcodeOf(SpecialGood good);

/// Writes the goods and their documents.
void WriteSpecialGoods(SqliteConnection& connection, DocumentBook& book);

}  // namespace koru::sample
