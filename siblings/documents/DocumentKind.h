#pragma once

#include <string>
#include <string_view>

namespace koru {

/// The properties of a kind of stock document: its tables and names.
struct DocumentKind {
  std::string_view table;      ///< the documents
  std::string_view lineTable;  ///< their lines
  std::string_view lineKey;    ///< the column of the lines with the document's key
  std::string name;            ///< for titles and messages
  std::string objectName;      ///< of the window
};

/// Receipts into a store.
[[nodiscard]] const DocumentKind& ReceiptKind();
/// Dispatches out of a store.
[[nodiscard]] const DocumentKind& DispatchKind();

/// The question before a document of the kind is registered.
[[nodiscard]] std::string RegistrationQuestion(const DocumentKind& kind);

}  // namespace koru
