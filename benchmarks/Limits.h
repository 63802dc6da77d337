#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

struct sqlite3;

namespace koru::bench {

/// A connection of SQLite's own to the file, with the collation of ours and the same cache of pages.
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

/// What a calculation finds out about a good.
struct GoodState {
  double quantity = 0;
  double dispatchRate = 0;  ///< 0: none
  double receiptRate = 0;
  int dispatchDay = -1;
  int receiptDay = -1;
  int unit = 0;
};
using GoodStates = std::unordered_map<std::string, GoodState>;

/// The calculation of the full sample's counting written by hand as one pass: the documents in scope to a
/// set, their lines to a hash, the latest rate kept.
[[nodiscard]] GoodStates CalculateByHand(const PlainConnection& connection);

}  // namespace koru::bench
