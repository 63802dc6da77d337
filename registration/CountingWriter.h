#pragma once

#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/sql/Database.h"
#include "services/SharedState.h"

namespace koru {

/// Writes the counting on the form to the database, in the same way for a temporary save and for a
/// registration: the header, then all lines anew.
class CountingWriter {
 public:
  /// Both must outlive the writer.
  CountingWriter(InvCountingControls& controls, SharedState& shared) : controls_(controls), shared_(shared) {}

  /// Inserts the header of a new counting and shows its key, or updates the header of an edited one; in any
  /// other mode no header is written. Then the form turns to viewing, and the lines of the grid replace those
  /// in the database. Throws DatabaseError; what the statements before the failing one wrote stays.
  void Write();
  /// Finishes the batch: everything written since it began reaches the disk. When that fails, none of it is
  /// stored: the form returns to its state before Write, and the counting is still being entered. Throws
  /// DatabaseError.
  void Finish(WriteBatch& batch);

 private:
  /// What Write changes on the form.
  struct FormState {
    DocumentMode mode = DocumentMode::Viewing;
    std::string id;
    std::string title;
  };

  void InsertHeader();
  void UpdateHeader();
  void ReplaceLines();

  InvCountingControls& controls_;
  SharedState& shared_;
  FormState before_;
};

}  // namespace koru
