#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "counting/controls/InvCountingControls.h"
#include "lines/CountingLines.h"
#include "platform/ports/DraftStore.h"
#include "registration/StoredCounting.h"
#include "services/SharedState.h"

namespace koru {

/// A counting that is being entered, as the form shows it: every text, key and date of the header, every cell
/// of every line in their order, their order of entry, the sums, and what is remembered of the stored
/// counting that is being edited.
struct CountingDraft {
  DraftOwner owner;
  DocumentMode mode = DocumentMode::New;                   ///< New or Editing
  std::string title;                                       ///< the form's
  std::map<std::string, std::string, std::less<>> fields;  ///< by the names of the controls
  std::vector<std::string> cells;                          ///< row by row, kLineColumns for each line
  /// The place of each line in the order of entry, from 1; empty where that is the order of the lines.
  std::vector<std::size_t> places;
  int row = 0;  ///< the current cell
  int col = 0;
  int sortedCol = -1;  ///< Grid::SortedCol
  bool sortedDescending = false;
  std::int32_t storedKey = 0;
  std::optional<CountingSnapshot> stored;  ///< StoredCounting::Remembered

  [[nodiscard]] std::size_t Lines() const;
  /// The key of the counting that is being edited; empty for a new one.
  [[nodiscard]] const std::string& Key() const;
};

/// The draft of what is on the form, as a text.
[[nodiscard]] std::string EncodeDraft(InvCountingControls& controls, const DraftOwner& owner,
                                      DocumentMode mode, const StoredCounting& stored);

/// Throws InputError when `text` is not a whole draft.
[[nodiscard]] CountingDraft DecodeDraft(std::string_view text);

/// Shows the draft on the form, exactly as it was; the mode is the caller's to set. No event of a user is
/// raised and no statement sent.
void ShowDraft(const CountingDraft& draft, InvCountingControls& controls, CountingLines& lines);

}  // namespace koru
