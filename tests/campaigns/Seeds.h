#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <string>

#include "tests/campaigns/Setting.h"

namespace koru::test {

/// Runs a round of a campaign with each of its seeds, and ends after the first that fails. Prints the seeds;
/// a failure names its own. `rounds` is the number of seeds where KORU_CAMPAIGN_TIMES is 1; returns it
/// multiplied.
inline unsigned RunSeeds(unsigned rounds, const std::function<void(unsigned seed)>& round) {
  const CampaignSetting setting;
  const unsigned count = rounds * setting.times;
  std::cout << "seeds " << setting.seed << " to " << setting.seed + count - 1 << "\n";
  for (unsigned seed = setting.seed; seed < setting.seed + count && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    round(seed);
  }
  return count;
}

}  // namespace koru::test
