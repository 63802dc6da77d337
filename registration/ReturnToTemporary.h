#pragma once

#include <optional>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "registration/StoredCountingGuard.h"
#include "services/SharedState.h"

namespace koru {

/// The command mnuRS: returns a final counting to the temporary state, so that it can be edited again.
class ReturnToTemporary {
 public:
  /// All must outlive the command.
  ReturnToTemporary(InvCountingControls& controls, SharedState& shared, StoredCountingGuard& guard)
      : controls_(controls), shared_(shared), guard_(guard) {}

  /// Whether the counting was returned. Unless the user answers no, deletes the counting's documents, clears
  /// its number and closes the gap in the numbers of the other countings. The stored number decides which
  /// others move, not the one on the form: another return may have moved it, and a number that was never
  /// stored moves none. Refused with a message when the user lacks the right, or when the receipt or the
  /// dispatch has become final. Does nothing on a temporary counting. Throws DatabaseError; what was written
  /// by then stays.
  bool Run();

 private:
  /// Whether the counting has a document that the document's own component has made final; the message names
  /// that document.
  [[nodiscard]] bool HasFinalDocument(FixedSql finalDocumentsOf, const char* message) const;
  /// False when the database had no such counting any more.
  [[nodiscard]] bool Return(const std::string& storedCode);
  void ForgetGapIfLost(WriteBatch& batch);
  /// Whether a return of the counting on the form failed before it closed the gap in the numbers.
  [[nodiscard]] bool HasGap() const;

  /// A number that a counting has lost, while the numbers above it have not moved yet.
  struct Gap {
    double countingID = 0;
    double code = 0;
  };

  InvCountingControls& controls_;
  SharedState& shared_;
  StoredCountingGuard& guard_;
  std::optional<Gap> gap_;
};

}  // namespace koru
