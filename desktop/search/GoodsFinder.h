#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// A good as a person picks it.
struct PickedGood {
  std::string barcode;
  std::string code;  ///< empty when it has none
  std::string name;
};

/// What was found for a text.
struct FoundGoods {
  std::vector<PickedGood> goods;
  bool more = false;  ///< there are, or may be, others that are not listed
};

/// Finds goods while a person types.
class GoodsFinder {
 public:
  static constexpr std::int32_t kAllStores = -1;
  /// More lines than this nobody reads; typing one more word is faster.
  static constexpr std::size_t kMaxListed = 100;
  /// Of so many goods at most is it looked up whether they belong to the store, so that no key waits for it.
  static constexpr std::size_t kMaxExamined = 1000;

  /// `database` must outlive the object.
  explicit GoodsFinder(Database& database) : database_(database) {}

  /// From now on finds only goods that the receipts or dispatches of a store, or of the stores below it,
  /// contain; kAllStores: every good.
  void OnlyOfStore(std::int32_t store);

  /// The goods in whose name, code or barcode every word of `typed` occurs; all goods when nothing is typed.
  /// Words are taken as they stand: `%`, `_` and `[` are no wildcards. The good whose barcode or code is
  /// exactly what was typed comes first, then by name. Throws DatabaseError.
  [[nodiscard]] FoundGoods Find(std::string_view typed);

  /// The name of a store; empty when there is none of that key. Throws DatabaseError.
  [[nodiscard]] std::string StoreName(std::int32_t store) const;

 private:
  bool MovedInStore(const std::string& barcode);

  Database& database_;
  std::int32_t store_ = kAllStores;
  std::unordered_map<std::string, bool> moved_;  ///< what is known already, by barcode
};

}  // namespace koru
