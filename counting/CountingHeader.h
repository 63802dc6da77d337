#pragma once

#include <cstdint>
#include <string>

#include "counting/InvCountingControls.h"
#include "services/dteInvCounting.h"

namespace koru {

/// Puts the header of a stored counting on the form; boxes of columns that are NULL are emptied, so that
/// nothing of the counting before shows through. False, and nothing changes, when there is no such counting.
/// Throws DatabaseError, and nothing changes either.
bool FillInvCountingData(std::int32_t id, dteInvCounting& data, InvCountingControls& controls);

/// Empties the document: header, people, store, dates, lines and totals.
void ClearCounting(InvCountingControls& controls);

/// The full name of the signed-in user; empty when the suite does not know the user. Throws DatabaseError.
[[nodiscard]] std::string SignedInFullName(std::int32_t userID, dteInvCounting& data);

}  // namespace koru
