#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace koru {

/// The keys that a selection found, each with its place in the selection's order, from 1.
class KeyRanks {
 public:
  /// How SQLite knows a parameter that is one of these (sqlite3_bind_pointer).
  static constexpr const char* kPointerType = "koru-key-ranks";

  /// `keys` in their order, each once.
  explicit KeyRanks(const std::vector<std::int64_t>& keys);

  /// 0: the key was not found.
  [[nodiscard]] std::uint32_t RankOf(std::int64_t key) const {
    const std::uint64_t place = static_cast<std::uint64_t>(key) - first_;
    if (place < ranks_.size()) return ranks_[place];
    if (scattered_.empty()) return 0;
    const auto found = scattered_.find(key);
    return found == scattered_.end() ? 0 : found->second;
  }

 private:
  // The keys of a table mostly follow each other: then each has its place. Where they do not, a table of
  // places would be mostly empty.
  std::uint64_t first_ = 0;
  std::vector<std::uint32_t> ranks_;
  std::unordered_map<std::int64_t, std::uint32_t> scattered_;
};

/// Gives a connection the function KoruRank(ranks, key): RankOf, or NULL for a key that was not found. Throws
/// DatabaseError when SQLite refuses it.
void RegisterKeyRanks(sqlite3* connection);

}  // namespace koru
