#include "adapters/sqlite/StatementCache.h"

namespace koru {

SqliteStatement& StatementCache::Get(const std::string& shape) {
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

}  // namespace koru
