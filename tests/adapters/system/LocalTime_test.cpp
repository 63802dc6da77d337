#include "adapters/system/LocalTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace koru {
namespace {

using std::chrono::local_days;
using std::chrono::sys_days;
using std::chrono::year;

/// The test program's own environment says where the machine is: ctest and scripts/windows place it in Iran.
bool IsInIran() {
  const char* const zone = std::getenv("TZ");
  return zone != nullptr && std::string(zone) == "Asia/Tehran";
}

TEST(LocalTime, Is_that_of_the_machines_time_zone) {
  ASSERT_TRUE(IsInIran()) << "run with TZ=Asia/Tehran";
  const auto evening = sys_days(year{2025} / 12 / 1) + std::chrono::hours(20) + std::chrono::minutes(29);
  EXPECT_EQ(LocalTime(evening).time_since_epoch(),
            (local_days(year{2025} / 12 / 1) + std::chrono::hours(23) + std::chrono::minutes(59))
                .time_since_epoch());
  EXPECT_EQ(LocalTime(evening + std::chrono::minutes(1)).time_since_epoch(),
            local_days(year{2025} / 12 / 2).time_since_epoch());
}

TEST(LocalTime, Has_the_summer_time_of_the_year) {
  ASSERT_TRUE(IsInIran()) << "run with TZ=Asia/Tehran";
  const auto offsetOf = [](std::chrono::sys_seconds time) {
    return LocalTime(time).time_since_epoch() - time.time_since_epoch();
  };
  EXPECT_EQ(offsetOf(sys_days(year{2021} / 7 / 1)), std::chrono::minutes(270));
  EXPECT_EQ(offsetOf(sys_days(year{2025} / 7 / 1)), std::chrono::minutes(210));
}

}  // namespace
}  // namespace koru
