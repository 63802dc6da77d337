#pragma once

#include <cstdint>
#include <map>

namespace koru {

/// A set of sequence numbers, kept as ranges: a device sends nearly all of its numbers in a row.
class Sequences {
 public:
  using Ranges = std::map<std::int64_t, std::int64_t>;  ///< first and last number of each range

  void Add(std::int64_t number) { Add(number, number); }
  /// Adds the numbers `first` to `last`.
  void Add(std::int64_t first, std::int64_t last);
  [[nodiscard]] bool Contains(std::int64_t number) const;
  [[nodiscard]] bool IsEmpty() const { return ranges_.empty(); }
  [[nodiscard]] const Ranges& All() const { return ranges_; }

 private:
  Ranges ranges_;
};

}  // namespace koru
