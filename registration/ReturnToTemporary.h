#pragma once

#include "registration/CountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// The command mnuRS: takes a final counting back to the temporary state, so that it can be edited again.
class ReturnToTemporary {
 public:
  /// The form behind `controls` and `shared` must outlive the operation.
  ReturnToTemporary(const CountingControls& controls, SharedState& shared)
      : controls_(controls), shared_(shared) {}

  /// After the user's yes, deletes the counting's documents, clears its number and closes the gap in the
  /// numbers of the others. Refused, with a message, to a user without the right and when the receipt or the
  /// dispatch has become final; on a temporary counting nothing happens. Throws DatabaseError; what was
  /// written before stays.
  void Run();

 private:
  /// Whether the counting has a document that its own component has made final; the user is then told which
  /// one.
  [[nodiscard]] bool HasFinalDocument(FixedSql finalDocumentsOf, const char* message) const;
  void ClearCode();

  CountingControls controls_;
  SharedState& shared_;
};

}  // namespace koru
