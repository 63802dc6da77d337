#include "siblings/documents/SuiteDocument.h"

#include <utility>

namespace koru {

void SuiteDocument::SetConnectionString(const std::string& connectionString) {
  if (connectionString_ == connectionString) return;
  connectionString_ = connectionString;
  database_.reset();
}

void SuiteDocument::View(std::int32_t id) {
  if (!database_) database_ = databases_.Connect(connectionString_);
  std::optional<StockDocument> document = ReadDocument(*database_, kind_, id);
  if (!document) {
    messages_.ShowMessage(sentences::kError, "سندي با اين شماره رايانه اي موجود نيست.");
    return;
  }
  show_({*database_, kind_, messages_, std::move(*document)});
}

void RegisterDocumentComponents(ComponentRegistry& components, DatabaseConnector& databases,
                                const ShowDocument& show) {
  const auto add = [&](std::string_view className, const DocumentKind& kind) {
    components.Register(std::string(className), [&components, &databases, &kind, show] {
      return std::make_unique<SuiteDocument>(kind, databases, components, show);
    });
  };
  add(DocumentComponent::kReceiptClassName, ReceiptKind());
  add(DocumentComponent::kDispatchClassName, DispatchKind());
}

}  // namespace koru
