#pragma once

#include <chrono>

namespace koru {

/// The local time of the machine's time zone, by the rules of that year.
[[nodiscard]] std::chrono::local_seconds LocalTime(std::chrono::sys_seconds time);

}  // namespace koru
