#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "adapters/sqlite/SqliteConnection.h"

namespace koru {

/// Prepared statements by the shape that they were made from. When it is full, the one that was not used for
/// longest goes.
class StatementCache {
 public:
  using Prepare = std::function<SqliteStatement(const std::string& shape)>;

  StatementCache(std::size_t capacity, Prepare prepare) : capacity_(capacity), prepare_(std::move(prepare)) {}

  /// The statement of that shape, prepared now or earlier; valid until the next Get. What `prepare` throws
  /// passes through, and nothing is kept.
  SqliteStatement& Get(const std::string& shape);
  [[nodiscard]] std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    std::string shape;
    SqliteStatement statement;
  };
  std::size_t capacity_;
  Prepare prepare_;
  std::list<Entry> entries_;  ///< the one used last is in front
  std::unordered_map<std::string_view, std::list<Entry>::iterator> places_;
};

}  // namespace koru
