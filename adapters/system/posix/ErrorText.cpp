#include "adapters/system/ErrorText.h"

namespace koru {

std::string ErrorText(const std::error_code& error) { return error.message(); }

}  // namespace koru
