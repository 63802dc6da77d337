#pragma once

#include "counting/controls/InvCountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// The command mnuRS: returns a final counting to the temporary state, so that it can be edited again.
class ReturnToTemporary {
 public:
  /// Both must outlive the command.
  ReturnToTemporary(InvCountingControls& controls, SharedState& shared)
      : controls_(controls), shared_(shared) {}

  /// Unless the user answers no, deletes the counting's documents, clears its number and closes the gap in
  /// the numbers of the other countings. Refused with a message when the user lacks the right, or when the
  /// receipt or the dispatch has become final. Does nothing on a temporary counting. Throws DatabaseError;
  /// what was written by then stays.
  void Run();

 private:
  /// Whether the counting has a document that the document's own component has made final; the message names
  /// that document.
  [[nodiscard]] bool HasFinalDocument(FixedSql finalDocumentsOf, const char* message) const;
  void ClearCode();

  InvCountingControls& controls_;
  SharedState& shared_;
};

}  // namespace koru
