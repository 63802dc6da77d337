#pragma once

#include <string>

#include "counting/controls/InvCountingControls.h"
#include "registration/AdjustmentDocuments.h"

namespace koru {

// What a command did, in a sentence for the user: numbers, documents, paths.

[[nodiscard]] std::string SavedSentence(const InvCountingControls& controls);
[[nodiscard]] std::string RegisteredSentence(const InvCountingControls& controls,
                                             const AdjustmentDocuments::Written& documents);
/// `code`: the final number that the counting had.
[[nodiscard]] std::string ReturnedSentence(const std::string& code);
/// `id`: the key that the counting had.
[[nodiscard]] std::string DeletedSentence(const std::string& id);
[[nodiscard]] std::string CalculatedSentence(const InvCountingControls& controls);
[[nodiscard]] std::string WorkbookSentence(const std::string& file);

}  // namespace koru
