#pragma once

#include <cstdint>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "services/dteInvCounting.h"

namespace koru {

/// Shows the header of a stored counting on the form; a box whose column is NULL becomes empty. Returns
/// false, and changes nothing, when the counting does not exist. Throws DatabaseError and changes nothing.
bool FillInvCountingData(std::int32_t id, dteInvCounting& data, InvCountingControls& controls);

/// Empties the document: header, counters, store, dates, lines and totals.
void ClearCounting(InvCountingControls& controls);

/// The full name of the signed-in user; empty when the suite does not know the user. Throws DatabaseError.
[[nodiscard]] std::string SignedInFullName(std::int32_t userID, dteInvCounting& data);

}  // namespace koru
