#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "counting/controls/InvCountingControls.h"
#include "platform/sql/Recordset.h"
#include "services/dteInvCounting.h"

namespace koru {

/// The header of a stored counting, read completely.
struct CountingHeader {
  Recordset counting;   ///< the record of tblInventoryCounting
  std::string creator;  ///< the full name; empty when unknown
  std::array<std::int32_t, 3> counters{};
  std::int32_t confirmer = Selector::kNothing;
  std::int32_t store = Selector::kNothing;
};

/// Nothing when the counting does not exist. Throws DatabaseError or OverflowError.
[[nodiscard]] std::optional<CountingHeader> ReadCountingHeader(std::int32_t id, dteInvCounting& data);

/// Shows a header on the form; a box whose column is NULL, or a date that the Solar calendar does not have,
/// becomes empty.
void ShowCountingHeader(const CountingHeader& header, InvCountingControls& controls);

/// Empties the document: header, counters, store, dates, lines and totals.
void ClearCounting(InvCountingControls& controls);

/// The full name of the signed-in user; empty when the suite does not know the user. Throws DatabaseError.
[[nodiscard]] std::string SignedInFullName(std::int32_t userID, dteInvCounting& data);

}  // namespace koru
