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

/// The date of the Solar Hijri calendar.
[[nodiscard]] Date Day(int year, int month, int day);

/// From the first day of the year to its last but one: on the last, the books of the year are closed.
[[nodiscard]] Period TradingPeriod(int year);

/// A store and the goods that it keeps.
struct StoreGoods {
  int store = 0;
  std::vector<Good> goods;
};

/// The six stores that trade: four main stores and two shops, each of which keeps every fourth good.
[[nodiscard]] std::vector<StoreGoods> TradingStores(const std::vector<Good>& goods);

/// Receipts and dispatches of two years in the order of their dates. A dispatch exceeds the stock only in
/// rare slips.
class Movements {
 public:
  Movements(SqliteConnection& connection, DocumentBook& book, Random& random, std::vector<StoreGoods> stores);

  /// The first stock of the first year.
  void Begin();
  /// Deliveries and sales of a year.
  void Trade(int year);
  /// Carries the book stock over from the end of the first year to the second.
  void CarryOver();

 private:
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
