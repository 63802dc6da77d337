#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace koru {

/// Called with the name of a part and one piece of its unpacked content after the other; the last call for a
/// part has an empty piece.
using PartReader = std::function<void(std::string_view part, std::string_view piece)>;

/// Unpacks all parts of a packed (ZIP) file. False when the file is not whole.
[[nodiscard]] bool ReadPackedFile(const std::string& path, const PartReader& read);

}  // namespace koru
