#pragma once

#include <string>
#include <string_view>

namespace koru {

/// Appends a text as a JSON string. Bytes that are not UTF-8 become U+FFFD.
void AppendJson(std::string& json, std::string_view text);

}  // namespace koru
