#pragma once

#include <optional>
#include <string_view>

#include "platform/ports/TableFiles.h"

namespace koru {

/// Reads UTF-8 texts separated by commas, semicolons or tabs, whichever the first lines have most of outside
/// quotes. A field in quotes (") may have separators, line breaks and doubled quotes. Rows are numbered as a
/// spreadsheet shows them: a line break in quotes begins none. Nothing if `progress` cancels. Throws
/// InputError: a quote that is not closed, or a limit of TableBuilder.
[[nodiscard]] std::optional<FileTable> ReadSeparatedTexts(std::string_view text,
                                                          const TableFiles::Progress& progress);

}  // namespace koru
