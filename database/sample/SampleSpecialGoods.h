#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleDocuments.h"

namespace koru::sample {

/// Seven goods of the store of returned goods, each with few documents, for one case of the rules.
enum class SpecialGood {
  StockOf5 = 1,         ///< received 8, dispatched 3, at a value of 2: book stock 5, rate 2
  BelowZero,            ///< dispatched 4, never received: book stock -4
  NoDocuments,          ///< book stock 0, no rate, no sale unit
  RateOfReceipt,        ///< its only dispatch has the value 0, its later receipt 1500: book stock 9
  NotRegistered,        ///< has documents, none of them registered: book stock 0, no rate
  BlanksAroundBarcode,  ///< one receipt writes its barcode between blanks: book stock 7, rate of the other
                        ///< receipt, 900
  Tenths = 10  ///< weighed in tenths: received 0.1 and 0.2, dispatched 0.3: book stock 0, which the sums of
               ///< the doubles miss. Its barcode lies apart from those of the six, which are found together.
};

[[nodiscard]] std::string BarcodeOf(SpecialGood good);

/// Writes the goods and their documents.
void WriteSpecialGoods(SqliteConnection& connection, DocumentBook& book);

}  // namespace koru::sample
