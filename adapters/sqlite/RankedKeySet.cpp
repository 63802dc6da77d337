#include "adapters/sqlite/RankedKeySet.h"

#include <sqlite3.h>

#include <algorithm>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

/// At most this many array elements for each key; sparser keys are kept in the hash map.
constexpr std::uint64_t kMaxElementsPerKey = 64;

/// The set contains integers only, so a value of another type is in none.
void KeyRank(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  const auto* keys =
      static_cast<const RankedKeySet*>(sqlite3_value_pointer(arguments[0], RankedKeySet::kPointerType));
  if (keys == nullptr || sqlite3_value_type(arguments[1]) != SQLITE_INTEGER) return;
  if (const std::uint32_t rank = keys->RankOf(sqlite3_value_int64(arguments[1])))
    sqlite3_result_int64(context, rank);
}

}  // namespace

RankedKeySet::RankedKeySet(const std::vector<std::int64_t>& keys) {
  if (keys.empty()) return;
  const auto [least, most] = std::minmax_element(keys.begin(), keys.end());
  const std::uint64_t span = static_cast<std::uint64_t>(*most) - static_cast<std::uint64_t>(*least);
  const bool isDense = span / kMaxElementsPerKey < keys.size();
  if (isDense) {
    first_ = static_cast<std::uint64_t>(*least);
    ranks_.resize(span + 1);
  }
  std::uint32_t rank = 0;
  for (const std::int64_t key : keys) {
    (isDense ? ranks_[static_cast<std::uint64_t>(key) - first_] : scattered_[key]) = ++rank;
  }
}

void RegisterKeyRank(sqlite3* connection) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
  const int result = sqlite3_create_function_v2(connection, "koru_key_rank", 2, kFlags, nullptr, KeyRank,
                                                nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) throw DatabaseError(sqlite3_errmsg(connection), result, {});
}

}  // namespace koru
