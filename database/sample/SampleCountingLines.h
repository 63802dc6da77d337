#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleCountings.h"
#include "database/sample/SampleGoods.h"
#include "database/sample/SampleRandom.h"

namespace koru::sample {

/// The sign of the differences between a counting's accepted counts and the book stock.
enum class Finding { Nothing, Shortages, Surpluses, Both };

/// Creates plausible lines: book stock and rate come from the registered documents of the store in the
/// period, and most accepted counts equal the book stock.
class LineMaker {
 public:
  LineMaker(SqliteConnection& connection, Random& random, int store, const Period& period);

  /// Lines for `count` random goods that have book stock, in the order of `goods`.
  std::vector<CountingLine> Counted(const std::vector<Good>& goods, std::size_t count, Finding finding);
  /// Lines for all goods; the first `counted` of them have a first count and no other.
  std::vector<CountingLine> UnderWay(const std::vector<Good>& goods, std::size_t counted);
  /// The line of one good with its unit, book stock and rate, without counts.
  CountingLine Uncounted(const std::string& barcode);
  /// The same with an accepted count and the counts that lead to it: two equal ones, or a third that decides.
  CountingLine Accepted(const std::string& barcode, double accepted);

 private:
  double FindingFor(double books, Finding finding);

  SqliteConnection& connection_;
  Random& random_;
  int store_;
  Period period_;
  std::map<std::string, double> books_;
  SqliteStatement unit_;
};

}  // namespace koru::sample
