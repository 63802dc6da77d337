#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace koru {

/// Prepared statements by the shape that they were made from. When it is full, the one that was not used for
/// longest goes. Statement: whatever `Prepare` makes of a shape.
template <class Statement>
class StatementCache {
 public:
  using Prepare = std::function<Statement(const std::string& shape)>;

  StatementCache(std::size_t capacity, Prepare prepare) : capacity_(capacity), prepare_(std::move(prepare)) {}

  /// The statement of that shape, prepared now or earlier; valid until the next Get. What `prepare` throws
  /// passes through, and nothing is kept.
  Statement& Get(const std::string& shape) {
    // A command that saves sends one shape thousands of times.
    if (!entries_.empty() && entries_.front().shape == shape) return entries_.front().statement;
    const auto found = places_.find(shape);
    if (found != places_.end()) {
      entries_.splice(entries_.begin(), entries_, found->second);
      return entries_.front().statement;
    }
    entries_.push_front({shape, prepare_(shape)});
    places_.emplace(entries_.front().shape, entries_.begin());
    if (entries_.size() > capacity_) {
      places_.erase(entries_.back().shape);
      entries_.pop_back();
    }
    return entries_.front().statement;
  }
  [[nodiscard]] std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    std::string shape;
    Statement statement;
  };
  std::size_t capacity_;
  Prepare prepare_;
  std::list<Entry> entries_;  ///< the one used last is in front
  std::unordered_map<std::string_view, typename std::list<Entry>::iterator> places_;
};

}  // namespace koru
