#pragma once

#include <optional>

#include "counting/controls/InvCountingControls.h"
#include "registration/AdjustmentDocuments.h"
#include "registration/CountingWriter.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdIsFinalized: saves the counting, gives it the next number of the one sequence of all
/// countings, and writes the documents that correct the book stock to what was counted.
class FinalRegistration {
 public:
  /// All must outlive the command.
  FinalRegistration(InvCountingControls& controls, SharedState& shared, StoredCountingGuard& guard);

  /// Returns the documents that were written, or nothing when the counting was not registered. A user without
  /// the right gets a message, and nothing happens. txtCode shows the number before anything
  /// is saved; the database has it after all lines were written. Throws DatabaseError; what was written by
  /// then stays.
  std::optional<AdjustmentDocuments::Written> Run();

 private:
  void ShowNextCode();
  /// False when the database had no such counting.
  [[nodiscard]] bool StoreCode();

  InvCountingControls& controls_;
  SharedState& shared_;
  CountingWriter writer_;
  AdjustmentDocuments documents_;
};

}  // namespace koru
