#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/sql/Database.h"
#include "siblings/documents/DocumentKind.h"

namespace koru {

/// One line of a receipt or dispatch. Texts whose record no longer exists are empty.
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
  std::optional<std::int32_t> code;  ///< its number; none while temporary
  std::string store;
  std::string date;  ///< Solar Hijri, yyyy/mm/dd
  std::string creator;
  std::string notes;
  std::vector<DocumentLine> lines;  ///< in stored order
};

/// The document with the key `id`; empty if it does not exist. Throws DatabaseError.
[[nodiscard]] std::optional<StockDocument> ReadDocument(Database& database, const DocumentKind& kind,
                                                        std::int32_t id);

/// Registers a temporary document: assigns the number after the highest one of its kind. A registered
/// document keeps its number. Throws DatabaseError.
void RegisterDocument(Database& database, const DocumentKind& kind, std::int32_t id);

}  // namespace koru
