#pragma once

#include "platform/sql/Recordset.h"

namespace koru {

/// Reads all rows of the current result of an ODBC statement handle; no columns when it has none.
/// Whole numbers, also those that the server keeps as exact numbers without decimals, stay whole; other
/// numbers are read as doubles; days, whatever time the server keeps with them, are texts 'yyyy-mm-dd';
/// everything else is text. Throws DatabaseError when the driver cannot give a value.
[[nodiscard]] Recordset ReadRows(void* statement);

}  // namespace koru
