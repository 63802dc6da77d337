#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/SqlText.h"

namespace koru {

/// Converts the goods picker's list of barcodes, such as `('','100','200')`, to SQL text: the same text, with
/// the content of each literal as typed text. A list that holds anything but literals, commas and parentheses
/// makes the statement refused as a broken one (CheckTypedSpans).
[[nodiscard]] SqlText PickedList(std::string_view list);

/// The barcodes of the list, without its empty elements.
[[nodiscard]] std::vector<std::string> BarcodesIn(std::string_view list);

}  // namespace koru
