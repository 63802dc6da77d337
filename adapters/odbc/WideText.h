#pragma once

#include <string>
#include <string_view>

namespace koru {

/// UTF-8 as the UTF-16 that ODBC takes, and back. Bytes and units that are no text become U+FFFD.
[[nodiscard]] std::u16string ToUtf16(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::u16string_view utf16);

}  // namespace koru
