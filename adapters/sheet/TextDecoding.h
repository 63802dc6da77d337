#pragma once

#include <string>
#include <string_view>

namespace koru {

/// The text of a file as UTF-8, without a byte order mark: UTF-16 with a mark, otherwise UTF-8 if it is
/// valid, otherwise Windows-1256, the code page of Persian Windows. Throws InputError for a file that is no
/// text: one with zero bytes.
[[nodiscard]] std::string DecodedText(std::string_view bytes);

}  // namespace koru
