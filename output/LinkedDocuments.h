#pragma once

#include <memory>
#include <string_view>

#include "platform/controls/Label.h"
#include "platform/ports/Components.h"
#include "services/SharedState.h"

namespace koru {

/// The commands cmdInvExit and cmdInvReceipt: open the dispatch and the receipt that registration wrote for
/// the counting on the form, each in the suite's own component, which is hosted on the form.
class LinkedDocuments {
 public:
  /// `shared` and `lblIDVal`, which holds the counting's key, must outlive the object.
  LinkedDocuments(SharedState& shared, const Label& lblIDVal) : shared_(shared), lblIDVal_(lblIDVal) {}

  /// Makes the two components and gives them the connection and the signed-in user. A suite without one of
  /// them can still count; only opening its documents then fails.
  void SetUp();

  /// Each says so when the counting has no such document. Throws DatabaseError, and ComponentError (429) when
  /// the suite has no component for the document.
  void OpenDispatch();
  void OpenReceipt();

 private:
  [[nodiscard]] std::unique_ptr<SiblingComponent> Host(std::string_view className) const;
  void HandOver(DocumentComponent& document) const;
  void Open(const SqlText& documents, const char* noDocument, SiblingComponent* component) const;

  SharedState& shared_;
  const Label& lblIDVal_;
  std::unique_ptr<SiblingComponent> comInvExit_;
  std::unique_ptr<SiblingComponent> comInvReceipt_;
};

}  // namespace koru
