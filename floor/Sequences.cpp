#include "floor/Sequences.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace koru {

void Sequences::Add(std::int64_t first, std::int64_t last) {
  constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
  if (first > last) return;
  auto next = ranges_.upper_bound(first);
  if (next != ranges_.begin()) {
    const auto before = std::prev(next);
    const bool touches = before->second == kHighest || before->second + 1 >= first;
    if (touches) {
      first = before->first;
      last = std::max(last, before->second);
      next = ranges_.erase(before);
    }
  }
  while (next != ranges_.end() && (last == kHighest || next->first <= last + 1)) {
    last = std::max(last, next->second);
    next = ranges_.erase(next);
  }
  ranges_.emplace(first, last);
}

bool Sequences::Contains(std::int64_t number) const {
  const auto next = ranges_.upper_bound(number);
  return next != ranges_.begin() && std::prev(next)->second >= number;
}

}  // namespace koru
