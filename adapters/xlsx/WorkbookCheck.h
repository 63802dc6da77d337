#pragma once

#include <cstddef>
#include <string>

namespace koru {

/// Whether the workbook file is complete and its sheet has `texts` texts. The library that writes workbooks
/// uses temporary files and does not detect a full disk while writing them.
[[nodiscard]] bool IsWholeWorkbook(const std::string& path, std::size_t texts);

}  // namespace koru
