#pragma once

#include <cstddef>
#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace koru {

/// An LRU cache of prepared statements, by the normalized text that they were prepared from. `Statement` is
/// whatever `Prepare` returns.
template <class Statement>
class StatementCache {
 public:
  using Prepare = std::function<Statement(const std::string& text)>;

  StatementCache(std::size_t capacity, Prepare prepare) : capacity_(capacity), prepare_(std::move(prepare)) {}

  /// The statement of that text, prepared now or earlier; valid until the next Get. Exceptions of `prepare`
  /// propagate, and the cache stays as it is.
  Statement& Get(const std::string& text) {
    // A save sends the same text thousands of times.
    if (!entries_.empty() && entries_.front().text == text) return entries_.front().statement;
    const auto found = places_.find(text);
    if (found != places_.end()) {
      entries_.splice(entries_.begin(), entries_, found->second);
      return entries_.front().statement;
    }
    entries_.push_front({text, prepare_(text)});
    places_.emplace(entries_.front().text, entries_.begin());
    if (entries_.size() > capacity_) {
      places_.erase(entries_.back().text);
      entries_.pop_back();
    }
    return entries_.front().statement;
  }
  [[nodiscard]] std::size_t Size() const { return entries_.size(); }

 private:
  struct Entry {
    std::string text;
    Statement statement;
  };
  std::size_t capacity_;
  Prepare prepare_;
  std::list<Entry> entries_;  ///< the most recently used first
  std::unordered_map<std::string_view, typename std::list<Entry>::iterator> places_;
};

}  // namespace koru
