#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/ports/Components.h"
#include "platform/sql/Database.h"
#include "services/Messages.h"
#include "siblings/documents/StockDocument.h"

namespace koru {

/// A receipt or dispatch that a user opens, and what its window works with.
struct OpenedDocument {
  Database& database;
  const DocumentKind& kind;
  const Messages& messages;
  StockDocument document;
};

/// Shows a document, lets the user register it, and returns when the user closes it.
using ShowDocument = std::function<void(OpenedDocument opened)>;

/// The suite's component for receipts or dispatches, whose window is a function.
class SuiteDocument : public DocumentComponent {
 public:
  /// `kind` is ReceiptKind() or DispatchKind(). All references must outlive the object; messages and
  /// questions are shown through the message component that is registered in `components`.
  SuiteDocument(const DocumentKind& kind, DatabaseConnector& databases, const ComponentRegistry& components,
                ShowDocument show)
      : kind_(kind), databases_(databases), messages_(components), show_(std::move(show)) {}

  void SetConnectionString(const std::string& connectionString) override;
  void SetUserID(std::int32_t /*userID*/) override {}
  /// Returns when the document was closed; a message reports a key without a document. Throws DatabaseError
  /// when the document cannot be read, and what the window throws.
  void View(std::int32_t id) override;

 private:
  const DocumentKind& kind_;
  DatabaseConnector& databases_;
  Messages messages_;
  ShowDocument show_;
  std::string connectionString_;
  std::unique_ptr<Database> database_;
};

/// Registers both kinds under their class names. `components` and `databases` must outlive what is made.
void RegisterDocumentComponents(ComponentRegistry& components, DatabaseConnector& databases,
                                const ShowDocument& show);

}  // namespace koru
