#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desktop/documents/DocumentKind.h"
#include "platform/sql/Database.h"

namespace koru {

/// One line of a receipt or dispatch. Texts that the suite has no record for any more are empty.
struct DocumentLine {
  std::string barcode;
  std::string goodCode;
  std::string goodName;
  std::string unit;
  double quantity = 0;
  double unitValue = 0;

  [[nodiscard]] double Amount() const { return quantity * unitValue; }
};

/// A receipt or dispatch as it is stored.
struct StockDocument {
  std::int32_t id = 0;
  std::optional<std::int32_t> code;  ///< its number; none while it is temporary
  std::string store;
  std::string day;  ///< Solar Hijri
  std::string creator;
  std::string notes;
  std::vector<DocumentLine> lines;  ///< in the order in which they are stored
};

/// Empty when there is no such document. Throws DatabaseError.
[[nodiscard]] std::optional<StockDocument> ReadDocument(Database& database, const DocumentKind& kind,
                                                        std::int32_t id);

/// Registers a temporary document: gives it the number after the highest one of its kind. A document that has
/// a number keeps it. Throws DatabaseError.
void RegisterDocument(Database& database, const DocumentKind& kind, std::int32_t id);

}  // namespace koru
