#pragma once

#include "counting/controls/InvCountingControls.h"
#include "registration/CountingWriter.h"
#include "services/SharedState.h"

namespace koru {

/// The command cmdTmpSave: saves the counting without giving it a final number.
class TemporarySave {
 public:
  /// All must outlive the command.
  TemporarySave(InvCountingControls& controls, SharedState& shared, StoredCountingGuard& guard)
      : controls_(controls), shared_(shared), writer_(controls, shared, guard) {}

  /// Whether the counting was saved. A user without the right gets a message, and nothing happens. Throws
  /// DatabaseError; what was written by then stays.
  bool Run();

 private:
  InvCountingControls& controls_;
  SharedState& shared_;
  CountingWriter writer_;
};

}  // namespace koru
