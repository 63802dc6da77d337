#pragma once

#include "platform/controls/Grid.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// Gives the result grid its thirteen columns and their titles, and removes all rows.
void SetUpInvSearchResult(Grid& flexSearch);

/// Appends a row for each counting of the recordset, numbered from 1. The recordset is at its end
/// afterwards.
void ShowFoundCountings(Grid& flexSearch, Recordset& found);

/// Sorts the found countings by a column, numbers before texts, and renumbers the rows.
void SortFoundCountings(Grid& flexSearch, int col);

}  // namespace koru
