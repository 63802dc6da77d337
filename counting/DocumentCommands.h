#pragma once

#include <cstdint>

#include "counting/InvCountingControls.h"
#include "counting/StoreChange.h"
#include "lines/CountingLines.h"
#include "services/SharedState.h"

namespace koru {

/// The commands that change the mode of the document on the form: New, Edit, Delete, Delete all, Cancel.
class DocumentCommands {
 public:
  /// All arguments must outlive the object.
  DocumentCommands(SharedState& shared, InvCountingControls& controls, CountingLines& lines,
                   StoreChange& storeChange, const std::int32_t& defaultStore)
      : shared_(shared),
        controls_(controls),
        lines_(lines),
        storeChange_(storeChange),
        defaultStore_(defaultStore) {}

  // Each throws DatabaseError where a statement fails; what was written by then stays.

  /// An empty document of today, under the default store when the user may work there.
  void New();
  /// Opens the counting on the form for changes, unless it is final.
  void Edit();
  /// Deletes the counting on the form after a question, unless it is final: its lines, then its header.
  void Delete();
  /// Takes all lines off the grid after a question; the database keeps them until the next save.
  void DeleteAll();
  /// Gives the entry up after a question: a stored counting gets its header back (its lines stay as they are
  /// on the grid), a new one goes.
  void Cancel();

 private:
  void SetMode(DocumentMode mode);

  SharedState& shared_;
  InvCountingControls& controls_;
  CountingLines& lines_;
  StoreChange& storeChange_;
  const std::int32_t& defaultStore_;
};

}  // namespace koru
