#include "adapters/sqlite/KeyRanks.h"

#include <gtest/gtest.h>

#include <limits>

namespace koru {
namespace {

TEST(KeyRanks, Know_each_key_by_its_place_and_no_other_key) {
  const KeyRanks ranks({7, 5, 6, 9});
  EXPECT_EQ(ranks.RankOf(7), 1U);
  EXPECT_EQ(ranks.RankOf(5), 2U);
  EXPECT_EQ(ranks.RankOf(9), 4U);
  for (const std::int64_t other : {4, 8, 10, 0, -5}) EXPECT_EQ(ranks.RankOf(other), 0U) << other;
}

TEST(KeyRanks, Know_keys_that_lie_as_far_apart_as_keys_can) {
  constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  const KeyRanks ranks({kMax, 0, kMin});
  EXPECT_EQ(ranks.RankOf(kMax), 1U);
  EXPECT_EQ(ranks.RankOf(0), 2U);
  EXPECT_EQ(ranks.RankOf(kMin), 3U);
  EXPECT_EQ(ranks.RankOf(1), 0U);
  EXPECT_EQ(ranks.RankOf(kMin + 1), 0U);
}

TEST(KeyRanks, Of_nothing_know_no_key) {
  const KeyRanks ranks({});
  EXPECT_EQ(ranks.RankOf(0), 0U);
  EXPECT_EQ(ranks.RankOf(1), 0U);
}

}  // namespace
}  // namespace koru
