#pragma once

#include "platform/controls/Grid.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// Gives the result grid its thirteen columns and their titles; the grid is empty afterwards.
void SetUpCountingSearchResult(Grid& flexSearch);

/// Appends a row for each counting that the recordset holds, numbered from 1. The recordset is at its end
/// afterwards.
void ShowFoundCountings(Grid& flexSearch, Recordset& found);

/// Orders the found countings by a column, numbers before texts, and numbers the rows anew.
void SortFoundCountings(Grid& flexSearch, int col);

}  // namespace koru
