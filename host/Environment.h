#pragma once

#include "adapters/log/LogFile.h"

namespace koru {

/// The log that the environment asks for: KORU_LOG names the file; KORU_LOG_TEXTS=1 lets typed texts be
/// written as they are. Programs are distinguished by their process numbers.
[[nodiscard]] LogSettings LogSettingsOfEnvironment();

}  // namespace koru
