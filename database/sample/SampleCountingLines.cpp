#include "database/sample/SampleCountingLines.h"

#include <algorithm>

namespace koru::sample {

// The unit is the good's base unit among its sale units, else the first base unit of all.
LineMaker::LineMaker(SqliteConnection& connection, Random& random, int store, const Period& period)
    : connection_(connection),
      random_(random),
      store_(store),
      period_(period),
      books_(BookStock(connection, store, period)),
      unit_(connection.Prepare(
          "select ID from tblGoodScale where ScaleToBaseParent = 1 order by"
          " ID in (select ScaleID from tblGoodSaleScale where Barcode = ?) desc, ID limit 1")) {}

CountingLine LineMaker::Uncounted(const std::string& barcode) {
  CountingLine line;
  line.barcode = barcode;
  unit_.Bind(1, barcode);
  unit_.Step();
  line.unit = static_cast<int>(unit_.Integer(0));
  unit_.Reset();
  const auto known = books_.find(barcode);
  line.books = known == books_.end() ? 0 : known->second;
  line.difference = Difference(std::nullopt, line.books);
  line.rate = LatestRate(connection_, store_, barcode, period_);
  return line;
}

CountingLine LineMaker::Accepted(const std::string& barcode, double accepted) {
  CountingLine line = Uncounted(barcode);
  line.accepted = accepted;
  line.counts = {.first = accepted, .second = accepted};
  // Where the first two counters differ a third one decides.
  if (random_.OneIn(6)) {
    line.counts = {.first = accepted + 1, .second = accepted, .third = accepted};
  }
  line.difference = Difference(line.accepted, line.books);
  return line;
}

double LineMaker::FindingFor(double books, Finding finding) {
  if (finding == Finding::Nothing || random_.Below(100) < 70) return books;
  const bool surplus = finding == Finding::Surpluses || (finding == Finding::Both && random_.OneIn(2));
  const int difference = random_.Between(1, 4);
  return std::max(0.0, surplus ? books + difference : books - difference);
}

std::vector<CountingLine> LineMaker::Counted(const std::vector<Good>& goods, std::size_t count,
                                             Finding finding) {
  std::vector<std::string> inStock;
  for (const Good& good : goods) {
    const auto known = books_.find(good.barcode);
    if (known != books_.end() && known->second > 0) inStock.push_back(good.barcode);
  }
  std::vector<std::size_t> chosen = random_.Choose(inStock.size(), count);
  std::sort(chosen.begin(), chosen.end());
  std::vector<CountingLine> lines;
  for (const std::size_t place : chosen) {
    const std::string& barcode = inStock[place];
    lines.push_back(Accepted(barcode, FindingFor(books_[barcode], finding)));
  }
  return lines;
}

std::vector<CountingLine> LineMaker::UnderWay(const std::vector<Good>& goods, std::size_t counted) {
  std::vector<CountingLine> lines;
  for (const Good& good : goods) {
    CountingLine line = Uncounted(good.barcode);
    if (lines.size() < counted) line.counts.first = std::max(0.0, FindingFor(line.books, Finding::Both));
    lines.push_back(line);
  }
  return lines;
}

}  // namespace koru::sample
