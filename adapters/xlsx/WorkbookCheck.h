#pragma once

#include <cstddef>
#include <string>

namespace koru {

/// Whether the workbook file is whole and its sheet holds so many texts. The library that writes workbooks
/// goes through temporary files and does not notice when the disk takes only a part of one of them.
[[nodiscard]] bool IsWholeWorkbook(const std::string& path, std::size_t texts);

}  // namespace koru
