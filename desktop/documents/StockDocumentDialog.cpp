#include "desktop/documents/StockDocumentDialog.h"

#include <QApplication>
#include <utility>

#include "desktop/documents/DocumentWindow.h"

namespace koru {

void StockDocumentDialog::SetConnectionString(const std::string& connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = connectionString;
  database_.reset();
}

void StockDocumentDialog::View(std::int32_t id) {
  if (!database_) database_ = databases_.Connect(connectionString_);
  std::optional<StockDocument> document = ReadDocument(*database_, kind_, id);
  if (!document) {
    messages_.ShowMessage(sentences::kError, "سندي با اين شماره رايانه اي موجود نيست.");
    return;
  }
  LetUse(*database_, kind_, messages_, std::move(*document));
}

void StockDocumentDialog::LetUse(Database& database, const DocumentKind& kind, const Messages& messages,
                                 StockDocument document) {
  DocumentWindow window(database, kind, messages, std::move(document), QApplication::activeWindow());
  window.exec();
}

void RegisterDocumentComponents(ComponentRegistry& components, DatabaseConnector& databases) {
  const auto add = [&](std::string_view className, const DocumentKind& kind) {
    components.Register(std::string(className), [&components, &databases, &kind] {
      return std::make_unique<StockDocumentDialog>(kind, databases, components);
    });
  };
  add(DocumentComponent::kReceiptClassName, ReceiptKind());
  add(DocumentComponent::kDispatchClassName, DispatchKind());
}

}  // namespace koru
