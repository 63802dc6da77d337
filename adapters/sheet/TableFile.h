#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ports/TableFiles.h"

namespace koru {

/// Reads a table from the bytes of a file: a workbook (.xlsx) or separated texts (CSV), whichever they are.
/// Nothing if `progress` cancels. Throws InputError with the reason as a sentence.
[[nodiscard]] std::optional<FileTable> ReadTable(std::string_view bytes, std::size_t sheet,
                                                 const TableFiles::Progress& progress);

/// The same for a file, by its path in UTF-8; the sentence names the file.
[[nodiscard]] std::optional<FileTable> ReadTableFile(const std::string& path, std::size_t sheet,
                                                     const TableFiles::Progress& progress);

}  // namespace koru
