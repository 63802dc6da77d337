#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "platform/ports/TableFiles.h"

namespace koru {

/// Reads one sheet of a workbook (.xlsx) from its bytes. `sheet` is the place among the visible sheets (all,
/// if none is visible), from 0. Nothing if `progress` cancels. Throws InputError with a sentence for the
/// user.
[[nodiscard]] std::optional<FileTable> ReadWorkbookTable(std::string_view bytes, std::size_t sheet,
                                                         const TableFiles::Progress& progress);

}  // namespace koru
