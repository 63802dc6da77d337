#pragma once

#include <cstdint>

#include "platform/controls/ComboBox.h"
#include "services/dteInvCounting.h"

namespace koru {

/// Appends the titles of the report templates of a form type to a list, each with the template's key as item
/// data, and chooses the first entry. Returns whether the list has entries. Throws DatabaseError.
bool FillReportTemplates(dteInvCounting& data, std::int32_t formTypeID, ComboBox& list);

}  // namespace koru
