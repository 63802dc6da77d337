#pragma once

#include <functional>
#include <optional>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/sql/Database.h"
#include "registration/StoredCountingGuard.h"
#include "registration/StoredLine.h"
#include "services/SharedState.h"

namespace koru {

/// Writes the counting on the form to the database, in the same way for a temporary save and for a
/// registration: the header, then all lines anew.
class CountingWriter {
 public:
  /// All must outlive the writer.
  CountingWriter(InvCountingControls& controls, SharedState& shared, StoredCountingGuard& guard)
      : controls_(controls), shared_(shared), guard_(guard) {}

  /// Runs a command that calls Write, and whatever else it writes, in one write batch. Returns whether the
  /// counting was written. The command does not
  /// run when another station has deleted or registered the counting, or when the user does not want to
  /// overwrite what another station has stored. Throws InputError, naming the line, when a line holds a text
  /// that no statement can carry; then nothing was sent. Throws what `write` throws; what was written by then
  /// stays. When the batch itself is lost, or the counting is found to be gone while it is written, the form
  /// returns to its state before the command, and the counting is still being entered. A lost batch throws
  /// DatabaseError (nothing of it is stored) or UncertainWrite (it may be: the message names how the user
  /// finds out).
  bool Save(const std::function<std::optional<LinesDigest>()>& write);

  /// Inserts the header of a new counting and shows its key, or updates the header of an edited one; in any
  /// other mode no header is written. Then the form turns to viewing, and the lines of the grid replace those
  /// in the database. Returns the lines that were written, or nothing when there was no header to update:
  /// then nothing else was sent. Throws DatabaseError; what the statements before the failing one wrote
  /// stays.
  [[nodiscard]] std::optional<LinesDigest> Write();

 private:
  /// What a save or a registration changes on the form.
  struct FormState {
    DocumentMode mode = DocumentMode::Viewing;
    std::string id;
    std::string title;
    std::string code;
    std::optional<CountingSnapshot> remembered;
  };

  void CheckTexts() const;
  void Finish(WriteBatch& batch);
  [[nodiscard]] std::optional<bool> IsStored();
  void RestoreForm();
  void InsertHeader();
  /// False when the database had no such counting.
  [[nodiscard]] bool UpdateHeader();
  [[nodiscard]] LinesDigest ReplaceLines();

  InvCountingControls& controls_;
  SharedState& shared_;
  StoredCountingGuard& guard_;
  FormState before_;
};

}  // namespace koru
