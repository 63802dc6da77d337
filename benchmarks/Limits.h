#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace koru::bench {

/// A plain SQLite connection to the file, with the product's collation and cache size.
class PlainConnection {
 public:
  explicit PlainConnection(const std::string& path);
  PlainConnection(const PlainConnection&) = delete;
  PlainConnection& operator=(const PlainConnection&) = delete;
  ~PlainConnection();

  [[nodiscard]] sqlite3* Get() const { return connection_; }
  void Execute(const std::string& sql) const;

 private:
  sqlite3* connection_ = nullptr;
};

/// The result of a calculation for one good.
struct GoodState {
  double quantity = 0;
  double dispatchRate = 0;  ///< 0: none
  double receiptRate = 0;
  int dispatchDay = -1;
  int receiptDay = -1;
  int unit = 0;
};
using GoodStates = std::unordered_map<std::string, GoodState>;

/// The calculation of the full sample's counting, written by hand as a single pass: the keys of the documents
/// in scope in a set, the state of each good in a hash map, updated with the latest rate.
[[nodiscard]] GoodStates CalculateByHand(const PlainConnection& connection);

}  // namespace koru::bench
