#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace koru {

/// The keys that a query returned, each with its rank: its position in the result, from 1.
class RankedKeySet {
 public:
  /// The type by which SQLite passes a set as a parameter (sqlite3_bind_pointer).
  static constexpr const char* kPointerType = "koru-ranked-key-set";

  /// `keys` in the order of the result, without duplicates.
  explicit RankedKeySet(const std::vector<std::int64_t>& keys);

  /// 0 if the set does not contain the key.
  [[nodiscard]] std::uint32_t RankOf(std::int64_t key) const {
    const std::uint64_t place = static_cast<std::uint64_t>(key) - first_;
    if (place < ranks_.size()) return ranks_[place];
    if (scattered_.empty()) return 0;
    const auto found = scattered_.find(key);
    return found == scattered_.end() ? 0 : found->second;
  }

 private:
  // The keys of a table are mostly consecutive: then an array is indexed by the key. Where they are sparse,
  // a hash map takes less memory.
  std::uint64_t first_ = 0;
  std::vector<std::uint32_t> ranks_;
  std::unordered_map<std::int64_t, std::uint32_t> scattered_;
};

/// Registers the SQL function koru_key_rank(set, key): RankOf, or NULL for a key that the set does not
/// contain. Throws DatabaseError.
void RegisterKeyRank(sqlite3* connection);

}  // namespace koru
