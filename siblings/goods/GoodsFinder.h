#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// A good that the user can pick.
struct PickedGood {
  std::string barcode;
  std::string code;  ///< empty if none
  std::string name;
};

/// The result of a search.
struct FoundGoods {
  std::vector<PickedGood> goods;
  bool more = false;  ///< there are, or may be, further goods
};

/// Finds goods while the user types.
class GoodsFinder {
 public:
  static constexpr std::int32_t kAllStores = -1;
  /// The maximum length of a result: users narrow a longer list by typing another word.
  static constexpr std::size_t kMaxListed = 100;
  /// The maximum number of goods that one search checks against the store, so that no key press waits for the
  /// database.
  static constexpr std::size_t kMaxExamined = 1000;

  /// `database` must outlive the object.
  explicit GoodsFinder(Database& database) : database_(database) {}

  /// Restricts the following searches to goods in the receipts or dispatches of `store` and the stores below
  /// it; kAllStores removes the restriction.
  void OnlyOfStore(std::int32_t store);
  /// The store of the last call; kAllStores: no restriction.
  [[nodiscard]] std::int32_t Store() const { return store_; }

  /// The goods whose name, code or barcode contains every word of `typed`; all goods if `typed` is empty.
  /// `%`, `_` and `[` are not wildcards. A good whose barcode or code equals `typed` is first, the others
  /// follow by name. Throws DatabaseError.
  [[nodiscard]] FoundGoods Find(std::string_view typed);

  /// The name of a store; empty if it does not exist. Throws DatabaseError.
  [[nodiscard]] std::string StoreName(std::int32_t store) const;

 private:
  bool MovedInStore(const std::string& barcode);

  Database& database_;
  std::int32_t store_ = kAllStores;
  std::unordered_map<std::string, bool> moved_;  ///< cached results, by barcode
};

}  // namespace koru
