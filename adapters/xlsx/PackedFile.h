#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace koru {

/// Called for each piece of the unpacked content of a part, with the part's name; the last call for a part
/// has an empty piece.
using PartReader = std::function<void(std::string_view part, std::string_view piece)>;

/// Unpacks all parts of a ZIP file. False when the file is incomplete or damaged.
[[nodiscard]] bool ReadPackedFile(const std::string& path, const PartReader& read);

}  // namespace koru
