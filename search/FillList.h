#pragma once

#include <string_view>

#include "platform/controls/ComboBox.h"
#include "platform/sql/Recordset.h"

namespace koru {

/// Replaces the entries of a list by the records, in their order: the text of a column, with the record's
/// `ID` as item data.
inline void FillList(ComboBox& list, Recordset records, std::string_view textColumn) {
  list.Clear();
  for (; !records.AtEnd(); records.MoveNext()) {
    list.AddItem(records.Field(textColumn).Text(), records.Field("ID").Integer());
  }
}

}  // namespace koru
