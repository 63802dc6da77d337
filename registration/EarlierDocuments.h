#pragma once

#include "services/dteInvCounting.h"

namespace koru {

/// Deletes the receipt and the dispatch that a counting is linked to, the lines of each before its header.
/// The counting keeps the links. Throws DatabaseError; what was deleted by then stays so.
void RemoveEarlierDocuments(dteInvCounting& data, double countingID);

}  // namespace koru
