#pragma once

#include "counting/StoreChange.h"
#include "counting/controls/DocumentModes.h"
#include "counting/controls/InvCountingControls.h"
#include "lines/CountingLines.h"
#include "registration/StoredCountingGuard.h"
#include "services/SharedState.h"

namespace koru {

/// The commands that change the mode of the document on the form: New, Edit, Delete, Delete all, Cancel.
class DocumentCommands {
 public:
  /// All must outlive the object.
  DocumentCommands(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                   StoreChange& storeChange, StoredCountingGuard& guard)
      : controls_(controls), shared_(shared), lines_(lines), storeChange_(storeChange), guard_(guard) {}

  // Each throws DatabaseError when a statement fails; what was written by then stays.

  /// Opens an empty document with today's date, under the default store when the user may work there.
  void New();
  /// Opens the counting on the form for changes, unless it is final.
  void Edit();
  /// Asks, then deletes the counting on the form, unless it is final: its lines, then its header. Whether it
  /// was deleted.
  bool Delete();
  /// Asks, then removes all lines from the grid; the database keeps them until the next save.
  void DeleteAll();
  /// Asks, then ends the entry: a stored counting gets its stored header back and keeps the lines of the grid
  /// as they are; a new counting is discarded.
  void Cancel();

 private:
  void ShowStoredHeader();
  void LeaveForm();
  void SetMode(DocumentMode mode) { SetDocumentMode(mode, controls_, shared_); }

  InvCountingControls& controls_;
  SharedState& shared_;
  CountingLines& lines_;
  StoreChange& storeChange_;
  StoredCountingGuard& guard_;
};

}  // namespace koru
