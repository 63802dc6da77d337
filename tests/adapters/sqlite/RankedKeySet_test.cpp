#include "adapters/sqlite/RankedKeySet.h"

#include <gtest/gtest.h>

#include <limits>

namespace koru {
namespace {

TEST(RankedKeySet, Ranks_each_key_by_its_position_and_no_other_key) {
  const RankedKeySet keys({7, 5, 6, 9});
  EXPECT_EQ(keys.RankOf(7), 1U);
  EXPECT_EQ(keys.RankOf(5), 2U);
  EXPECT_EQ(keys.RankOf(9), 4U);
  for (const std::int64_t other : {4, 8, 10, 0, -5}) EXPECT_EQ(keys.RankOf(other), 0U) << other;
}

TEST(RankedKeySet, Ranks_keys_that_are_as_far_apart_as_keys_can_be) {
  constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  const RankedKeySet keys({kMax, 0, kMin});
  EXPECT_EQ(keys.RankOf(kMax), 1U);
  EXPECT_EQ(keys.RankOf(0), 2U);
  EXPECT_EQ(keys.RankOf(kMin), 3U);
  EXPECT_EQ(keys.RankOf(1), 0U);
  EXPECT_EQ(keys.RankOf(kMin + 1), 0U);
}

TEST(RankedKeySet, Without_keys_ranks_none) {
  const RankedKeySet keys({});
  EXPECT_EQ(keys.RankOf(0), 0U);
  EXPECT_EQ(keys.RankOf(1), 0U);
}

}  // namespace
}  // namespace koru
