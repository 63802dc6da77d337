#include "adapters/sqlite/KeyRanks.h"

#include <sqlite3.h>

#include <algorithm>

#include "platform/sql/DatabaseError.h"

namespace koru {
namespace {

constexpr std::uint64_t kPlacesForAKey = 64;

/// A column of whole numbers may hold other values only where they equal no whole number.
void KoruRank(sqlite3_context* context, int /*count*/, sqlite3_value** arguments) {
  const auto* ranks =
      static_cast<const KeyRanks*>(sqlite3_value_pointer(arguments[0], KeyRanks::kPointerType));
  if (ranks == nullptr || sqlite3_value_type(arguments[1]) != SQLITE_INTEGER) return;
  if (const std::uint32_t rank = ranks->RankOf(sqlite3_value_int64(arguments[1])))
    sqlite3_result_int64(context, rank);
}

}  // namespace

KeyRanks::KeyRanks(const std::vector<std::int64_t>& keys) {
  if (keys.empty()) return;
  const auto [least, most] = std::minmax_element(keys.begin(), keys.end());
  const std::uint64_t span = static_cast<std::uint64_t>(*most) - static_cast<std::uint64_t>(*least);
  const bool follow = span / kPlacesForAKey < keys.size();
  if (follow) {
    first_ = static_cast<std::uint64_t>(*least);
    ranks_.resize(span + 1);
  }
  std::uint32_t rank = 0;
  for (const std::int64_t key : keys) {
    (follow ? ranks_[static_cast<std::uint64_t>(key) - first_] : scattered_[key]) = ++rank;
  }
}

void RegisterKeyRanks(sqlite3* connection) {
  constexpr int kFlags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
  const int result = sqlite3_create_function_v2(connection, "KoruRank", 2, kFlags, nullptr, KoruRank, nullptr,
                                                nullptr, nullptr);
  if (result != SQLITE_OK) throw DatabaseError(sqlite3_errmsg(connection), result, {});
}

}  // namespace koru
