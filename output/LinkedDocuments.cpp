#include "output/LinkedDocuments.h"

#include "platform/ports/ComponentError.h"

namespace koru {

void LinkedDocuments::SetUp() {
  const auto hostIfRegistered = [this](std::string_view className) -> std::unique_ptr<SiblingComponent> {
    try {
      return Host(className);
    } catch (const ComponentError&) {
      return nullptr;
    }
  };
  comInvExit_ = hostIfRegistered(DocumentComponent::kDispatchClassName);
  comInvReceipt_ = hostIfRegistered(DocumentComponent::kReceiptClassName);
}

void LinkedDocuments::OpenDispatch() {
  Open(SqlText("Select * from tblInventoryDispatch Where ID in (Select DispatchID from tblInventoryCounting "
               "Where ID = ") +
           controls_.CountingID() + ")",
       "برگه خروجي از روي اين شمارش صادر نشده است.", comInvExit_.get());
}

void LinkedDocuments::OpenReceipt() {
  Open(SqlText("Select * from tblInventoryReceipt Where ID in (Select ReceiptID from tblInventoryCounting "
               "Where ID = ") +
           controls_.CountingID() + ")",
       "برگه رسيدي از روي اين شمارش صادر نشده است.", comInvReceipt_.get());
}

std::unique_ptr<SiblingComponent> LinkedDocuments::Host(std::string_view className) const {
  auto component = shared_.services.components.Create(className);
  if (auto* document = dynamic_cast<DocumentComponent*>(component.get())) HandOver(*document);
  return component;
}

void LinkedDocuments::HandOver(DocumentComponent& document) const {
  document.SetConnectionString(shared_.data.ConnectionString());
  document.SetUserID(shared_.user.userID);
}

void LinkedDocuments::Open(const SqlText& documents, const char* noDocument,
                           SiblingComponent* component) const {
  const Recordset found = shared_.data.rssqlCommon.Open(documents);
  if (found.RecordCount() == 0) {
    shared_.messages.ShowMessage(sentences::kError, noDocument);
    return;
  }
  auto* document = dynamic_cast<DocumentComponent*>(component);
  if (document == nullptr) {
    throw ComponentError("در اين برنامه جزئي براي نمايش اين سند نيست.", ComponentError::kNotRegistered);
  }
  HandOver(*document);  // another user may have signed in since the form was loaded
  document->View(found.Field("ID").Integer());
}

}  // namespace koru
