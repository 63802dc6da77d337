#pragma once

#include <string_view>

#include "platform/sql/SqlText.h"

namespace koru {

/// Converts the goods picker's list of barcodes, such as `('','100','200')`, to SQL text: the same text, with
/// the content of each literal as typed text. A list that holds anything but literals, commas and parentheses
/// makes the statement refused as a broken one (CheckTypedSpans).
[[nodiscard]] SqlText PickedList(std::string_view list);

}  // namespace koru
