#pragma once

#include "platform/sql/Recordset.h"

namespace koru {

/// Reads all rows of the current result of an ODBC statement handle. The recordset has no columns if there is
/// no result. Integer types, and exact numeric types of scale 0, are read as integers; other numeric types as
/// doubles; date types as texts 'yyyy-mm-dd' without their time; all other types as text. Throws
/// DatabaseError if the driver cannot return a value.
[[nodiscard]] Recordset ReadRows(void* statement);

}  // namespace koru
