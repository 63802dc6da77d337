#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleRows.h"
#include "platform/text/Date.h"

namespace koru::sample {

enum class DocumentKind { Receipt, Dispatch };

struct DocumentLine {
  std::string barcode;
  double quantity = 0;  ///< in base units
  std::optional<int> unit;
  double unitQuantity = 0;  ///< the same quantity in `unit`
  std::optional<double> value = std::nullopt;
};

struct Document {
  DocumentKind kind = DocumentKind::Receipt;
  int store = 0;
  int creator = 0;
  Date day;
  bool registered = true;
  std::optional<std::string> notes = std::nullopt;
  std::vector<DocumentLine> lines = {};
};

/// Writes receipts and dispatches and gives the registered ones of each kind their codes, 1 to n in the order
/// of registration.
class DocumentBook {
 public:
  explicit DocumentBook(SqliteConnection& connection);

  /// Returns the key of the new document.
  int Write(const Document& document);
  /// Gives a document that has none the next code of its kind.
  void Register(DocumentKind kind, int id);

 private:
  /// The statements and the last code of one kind.
  struct Shelf {
    RowWriter header;
    RowWriter line;
    std::string lineKey;  ///< the column of a line that has the document's key
    RowWriter code;
    int id = 0;
    int lastCode = 0;
  };
  static Shelf MakeShelf(SqliteConnection& connection, const std::string& kind);
  Shelf& Of(DocumentKind kind) { return kind == DocumentKind::Receipt ? receipts_ : dispatches_; }

  Shelf receipts_;
  Shelf dispatches_;
};

}  // namespace koru::sample
