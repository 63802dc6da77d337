#pragma once

#include <string>
#include <system_error>

namespace koru {

/// The system's sentence for an error, in UTF-8.
[[nodiscard]] std::string ErrorText(const std::error_code& error);

}  // namespace koru
