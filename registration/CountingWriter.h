#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "platform/sql/Database.h"
#include "registration/CountingControls.h"
#include "services/SharedState.h"

namespace koru {

/// What is stored of the notes, and what the column of the manual number holds, in UTF-16 units.
inline constexpr std::size_t kMaxNotesLength = 1000;
inline constexpr std::size_t kMaxManualCodeLength = 255;

/// Writes the counting on the form to the database, the same way for a temporary save and for a registration:
/// the header, then all lines anew.
class CountingWriter {
 public:
  /// `controls` and `shared` must outlive the writer. `disablelockcomponent` brings the form's controls into
  /// line with the document mode.
  CountingWriter(const CountingControls& controls, SharedState& shared,
                 const std::function<void()>& disablelockcomponent)
      : controls_(controls), shared_(shared), disablelockcomponent_(disablelockcomponent) {}

  /// Inserts the header of a new counting and shows its key, or updates that of an edited one; in any other
  /// mode the header is not written. Then the form turns to viewing, and the lines of the database are
  /// replaced by those of the grid. Throws DatabaseError; what the statements before the failing one wrote
  /// stays.
  void Write();
  /// Brings what was written since the group began to the disk. When that fails nothing of it is there: the
  /// form is again what it was before Write, and what was typed is still being entered. Throws DatabaseError.
  void Finish(WriteBatch& group) const;

 private:
  /// What Write changes on the form.
  struct Entry {
    DocumentMode mode = DocumentMode::Viewing;
    std::string id;
    std::string title;
  };

  void InsertHeader() const;
  void UpdateHeader() const;
  void ReplaceLines() const;

  const CountingControls& controls_;
  SharedState& shared_;
  const std::function<void()>& disablelockcomponent_;
  Entry before_;
};

}  // namespace koru
