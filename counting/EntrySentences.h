#pragma once

#include <string>

#include "lines/AcceptedCounts.h"
#include "lines/EntryHistory.h"

namespace koru {

// What a command for the figures being entered did, in a sentence for the user.

[[nodiscard]] std::string UndoneSentence(const EntryHistory::Result& result);
[[nodiscard]] std::string RedoneSentence(const EntryHistory::Result& result);
/// `filtered`: the user sees a part of the lines, but all were accepted.
[[nodiscard]] std::string AcceptedSentence(const AcceptedCounts::Result& result, bool filtered);

}  // namespace koru
