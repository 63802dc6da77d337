#pragma once

#include <string>
#include <string_view>

namespace koru {

/// The text in the format of gzip. `level` is 1, the fastest, to 9, the smallest.
[[nodiscard]] std::string Gzip(std::string_view text, int level);

}  // namespace koru
