#pragma once

#include <memory>
#include <string>

#include "desktop/documents/StockDocument.h"
#include "platform/ports/Components.h"
#include "platform/sql/Database.h"
#include "services/Messages.h"

namespace koru {

/// The suite's components for receipts and dispatches on the desktop: each shows a document with its lines in
/// a modal window, where it can be registered.
class StockDocumentDialog : public DocumentComponent {
 public:
  /// `kind` is ReceiptKind() or DispatchKind(). All three must outlive the object; messages and questions are
  /// shown through the message component that is registered in `components`.
  StockDocumentDialog(const DocumentKind& kind, DatabaseConnector& databases,
                      const ComponentRegistry& components)
      : kind_(kind), databases_(databases), messages_(components) {}

  void SetConnectionString(const std::string& connectionString) override;
  void SetUserID(std::int32_t /*userID*/) override {}
  /// Returns when the window was closed; says so when there is no such document. Throws DatabaseError when it
  /// cannot be read; failures after that are told in the window.
  void View(std::int32_t id) override;

 protected:
  /// Shows a document that exists, and returns when the person is done with it.
  virtual void LetUse(Database& database, const DocumentKind& kind, const Messages& messages,
                      StockDocument document);

 private:
  const DocumentKind& kind_;
  DatabaseConnector& databases_;
  Messages messages_;
  std::string connectionString_;
  std::unique_ptr<Database> database_;
};

/// Registers both components under their class names. `databases` and `components` must outlive what is made.
void RegisterDocumentComponents(ComponentRegistry& components, DatabaseConnector& databases);

}  // namespace koru
