#pragma once

#include <string>
#include <string_view>

namespace koru {

/// What distinguishes the two kinds of stock documents: where they are kept and what they are called.
struct DocumentKind {
  std::string_view table;      ///< the documents
  std::string_view lineTable;  ///< their lines
  std::string_view lineKey;    ///< the lines' column with the document's key
  std::string name;            ///< for titles and sentences
  std::string objectName;      ///< of the window
};

/// Receipts into a store.
[[nodiscard]] const DocumentKind& ReceiptKind();
/// Dispatches out of a store.
[[nodiscard]] const DocumentKind& DispatchKind();

/// What a person is asked before a document of the kind is registered.
[[nodiscard]] std::string RegistrationQuestion(const DocumentKind& kind);

}  // namespace koru
