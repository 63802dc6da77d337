#pragma once

#include <map>
#include <string>
#include <vector>

#include "adapters/sqlite/SqliteConnection.h"
#include "database/sample/SampleDocuments.h"
#include "database/sample/SampleGoods.h"
#include "database/sample/SampleRandom.h"
#include "database/sample/SampleStock.h"

namespace koru::sample {

inline constexpr int kFirstYear = 1403;
inline constexpr int kSecondYear = 1404;

/// The date with these numbers in the Solar Hijri calendar.
[[nodiscard]] Date Day(int year, int month, int day);

/// From the first day of the year to the last but one. On the last day the books are closed.
[[nodiscard]] Period TradingPeriod(int year);

/// A store and the goods that it keeps.
struct StoreGoods {
  int store = 0;
  std::vector<Good> goods;
};

/// The six stores that trade: four main stores and two shops, each of which keeps every fourth good.
[[nodiscard]] std::vector<StoreGoods> TradingStores(const std::vector<Good>& goods);

/// Writes the receipts and dispatches of two years by ascending date. A few dispatches exceed the stock, as a
/// mistake in practice would.
class Movements {
 public:
  Movements(SqliteConnection& connection, DocumentBook& book, Random& random, std::vector<StoreGoods> stores);

  /// Writes the opening stock of the first year.
  void Begin();
  /// Writes the deliveries and sales of a year.
  void Trade(int year);
  /// Carries the book stock over from the end of the first year to the second.
  void CarryOver();

 private:
  /// A document of a random user without lines; most are registered.
  Document NewDocument(DocumentKind kind, const StoreGoods& store, Date day);
  void Deliver(const StoreGoods& store, Date day);
  void Sell(const StoreGoods& store, Date day);
  void Book(const Document& document);
  DocumentLine LineOf(const Good& good, int units, int unit, Date day);
  std::optional<double> ValueOf(const Good& good, Date day);

  SqliteConnection& connection_;
  DocumentBook& book_;
  Random& random_;
  std::vector<StoreGoods> stores_;
  std::map<int, std::map<std::string, double>> stock_;
};

}  // namespace koru::sample
