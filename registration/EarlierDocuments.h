#pragma once

#include "services/dteInvCounting.h"

namespace koru {

/// Deletes the receipt and the dispatch that a counting points to, each with its lines first. The counting
/// goes on pointing to them.
void RemoveEarlierDocuments(dteInvCounting& data, double countingID);

}  // namespace koru
