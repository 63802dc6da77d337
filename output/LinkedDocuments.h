#pragma once

#include <memory>
#include <string_view>

#include "counting/controls/InvCountingControls.h"
#include "platform/ports/Components.h"
#include "services/SharedState.h"

namespace koru {

/// The commands cmdInvExit and cmdInvReceipt: open the dispatch and the receipt that registration wrote for
/// the counting on the form, each in the suite's own component, which the form hosts.
class LinkedDocuments {
 public:
  /// Both must outlive the object.
  LinkedDocuments(InvCountingControls& controls, SharedState& shared)
      : controls_(controls), shared_(shared) {}

  /// Makes the two components and gives them the connection and the signed-in user. A suite without one of
  /// them can still count; only opening its documents then fails.
  void SetUp();

  /// A counting without such a document gets a message. Throws DatabaseError, and ComponentError (429) when
  /// the suite has no component for the document.
  void OpenDispatch();
  void OpenReceipt();

 private:
  [[nodiscard]] std::unique_ptr<SiblingComponent> Host(std::string_view className) const;
  void HandOver(DocumentComponent& document) const;
  void Open(const SqlText& documents, const char* noDocument, SiblingComponent* component) const;

  InvCountingControls& controls_;
  SharedState& shared_;
  std::unique_ptr<SiblingComponent> comInvExit_;
  std::unique_ptr<SiblingComponent> comInvReceipt_;
};

}  // namespace koru
