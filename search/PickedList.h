#pragma once

#include <string_view>

#include "platform/sql/SqlText.h"

namespace koru {

/// The goods picker's list of barcodes, such as `('','100','200')`, as part of a statement: the same text,
/// with the content of each literal as typed text. A list of anything but literals, commas and parentheses
/// makes a statement that is refused as a broken one (CheckTypedSpans).
[[nodiscard]] SqlText PickedList(std::string_view list);

}  // namespace koru
