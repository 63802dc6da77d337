#include "adapters/system/LocalTime.h"

#include <ctime>

namespace koru {

std::chrono::local_seconds LocalTime(std::chrono::sys_seconds time) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
  std::tm local{};
  localtime_r(&seconds, &local);
  const std::chrono::year_month_day date =
      std::chrono::year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
  return std::chrono::local_days(date) + std::chrono::hours(local.tm_hour) +
         std::chrono::minutes(local.tm_min) + std::chrono::seconds(local.tm_sec);
}

}  // namespace koru
