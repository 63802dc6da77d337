#include "database/sample/LargeSample.h"

#include <algorithm>
#include <vector>

#include "database/Sample.h"
#include "database/sample/SampleCountings.h"
#include "database/sample/SampleGroups.h"
#include "database/sample/SamplePeople.h"
#include "database/sample/SampleSuite.h"
#include "database/sample/SampleUnits.h"

namespace koru::sample {
namespace {

constexpr std::uint64_t kLargeSeed = 32767;

/// Three goods in four were counted and accepted, mostly with the book stock.
CountingLine LineFor(const LargeGood& good, Random& random) {
  CountingLine line;
  line.barcode = good.barcode;
  line.unit = good.unit;
  line.books = good.books;
  line.rate = good.dispatchRate ? good.dispatchRate : good.receiptRate;
  if (!random.OneIn(4)) {
    const double found = random.OneIn(3) ? good.books + random.Between(-9, 9) : good.books;
    line.accepted = std::max(0.0, found);
    line.counts = {.first = line.accepted, .second = line.accepted};
  }
  line.difference = Difference(line.accepted, line.books);
  return line;
}

void WriteCounting(SqliteConnection& connection, const LargeCounts& counts,
                   const std::vector<LargeGood>& goods, Random& random) {
  Counting counting;
  counting.id = 1;
  counting.store = kCentralStore;
  counting.creator = 1;
  counting.day = kSampleToday;
  counting.period = LargePeriod();
  counting.counters = {1, 2, std::nullopt};
  counting.notes = "شمارش پايان سال";
  for (int line = 0; line < counts.countingLines; ++line) {
    counting.lines.push_back(LineFor(goods[static_cast<std::size_t>(line)], random));
  }
  DocumentBook documents(connection);
  CountingBook(connection, documents).Write(counting);
}

}  // namespace

void FillLargeSample(SqliteConnection& connection, const LargeCounts& counts,
                     const std::function<void(int)>& report) {
  Random random(kLargeSeed);
  report(0);
  WriteSuite(connection);
  WritePeople(connection);
  WriteLargeStores(connection);
  WriteUnits(connection);
  WriteGroups(connection);
  std::vector<LargeGood> goods = MakeLargeGoods(random, counts.goods);
  WriteLargeDocuments(connection, random, counts, goods, [&report](int done) { report(done * 3 / 5); });
  WriteLargeGoods(connection, goods);
  WriteCounting(connection, counts, goods, random);
  report(65);
}

}  // namespace koru::sample
