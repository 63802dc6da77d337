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

/// Which way the accepted counts of a counting may differ from the books.
enum class Finding { Nothing, Shortages, Surpluses, Both };

/// Makes lines as counters do: book stock and rate from the registered documents of the store in the period,
/// the accepted count mostly equal to the books.
class LineMaker {
 public:
  LineMaker(SqliteConnection& connection, Random& random, int store, const Period& period);

  /// Lines for `count` of the goods, chosen at random among those that the books know in stock, in the goods'
  /// order.
  std::vector<CountingLine> Counted(const std::vector<Good>& goods, std::size_t count, Finding finding);
  /// Lines for all goods; only the first `counted` of them have a count, the first one.
  std::vector<CountingLine> UnderWay(const std::vector<Good>& goods, std::size_t counted);
  /// The line of one good with its unit, books and rate, and nothing counted.
  CountingLine Uncounted(const std::string& barcode);
  /// The same with an accepted count, found by two counters.
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
