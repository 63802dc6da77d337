#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace koru::test {

/// A database file of a small store, made once and copied for every round: goods G1 to G6, temporary
/// countings 1 to 6, final ones 7 to 9 with the numbers 1 to 3, each with lines, shortages and surpluses.
class Store {
 public:
  Store();
  [[nodiscard]] const std::string& File() const { return file_; }
  /// A copy with which a round begins, in place of what is there.
  void CopyTo(const std::string& file) const;

 private:
  TemporaryFolder folder_;
  std::string file_;
};

inline constexpr int kFirstFinal = 7;
inline constexpr int kLastStored = 9;

/// What a file holds of one counting, read by SQLite itself.
struct StoredCounting {
  std::string code;   ///< empty while it is temporary
  std::string lines;  ///< `barcode=accepted;` in order
  bool operator==(const StoredCounting&) const = default;
};
[[nodiscard]] std::map<int, StoredCounting> StoredCountings(const std::string& file);

/// What must hold of every file at every moment and does not, each in a sentence: the file is whole; final
/// numbers are 1 to n; no line, no document line and no document of a counting is without the one that it
/// belongs to.
[[nodiscard]] std::vector<std::string> Violations(const std::string& file);

/// The same for the documents of one final counting: they hold its shortages and surpluses.
[[nodiscard]] std::vector<std::string> DocumentViolations(const std::string& file, int counting);

}  // namespace koru::test
