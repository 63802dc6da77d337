#pragma once

#include <cstdint>

#include "platform/controls/ComboBox.h"
#include "services/dteInvCounting.h"

namespace koru {

/// Adds the titles of the report templates of a kind of form to a list, each with the template's key as item
/// data, and chooses the first entry. Answers whether the list then holds any. Throws DatabaseError.
bool FillReportTemplates(dteInvCounting& data, std::int32_t formTypeID, ComboBox& list);

}  // namespace koru
