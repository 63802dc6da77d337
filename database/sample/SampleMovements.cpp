#include "database/sample/SampleMovements.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "database/sample/SamplePeople.h"
#include "database/sample/SampleStores.h"
#include "database/sample/SampleUnits.h"

namespace koru::sample {
namespace {

constexpr int kDaysBetweenDeliveries = 18;
constexpr int kDaysBetweenSales = 12;
constexpr int kShareOfUnregistered = 14;  // one document in this many

/// Costs rise by two per cent a month.
std::int64_t CostOn(const Good& good, Date day) {
  const SolarDate solar = ToSolar(day);
  const int months = (solar.year - kFirstYear) * 12 + solar.month - 1;
  return good.cost * (100 + 2 * months) / 100 / 100 * 100;
}

std::string SupplierNote(Random& random) {
  return "خريد طبق فاكتور شماره " + std::to_string(random.Between(1000, 9999));
}

std::optional<std::string> SaleNote(Random& random) {
  constexpr std::array<std::string_view, 4> kNotes = {"فروش روزانه", "تحويل به شعبه", "سفارش تلفني",
                                                      "ارسال با وانت انبار"};
  const int note = random.Below(6);
  if (note >= static_cast<int>(kNotes.size())) return std::nullopt;
  return std::string(kNotes.at(static_cast<std::size_t>(note)));
}

}  // namespace

Date Day(int year, int month, int day) { return ToGregorian({year, month, day}); }

Period TradingPeriod(int year) { return {Day(year, 1, 1), Day(year, 12, SolarMonthDays(year, 12) - 1)}; }

std::vector<StoreGoods> TradingStores(const std::vector<Good>& goods) {
  std::vector<StoreGoods> stores;
  for (const int store : {kDryFoodStore, kColdStore, kCleaningStore, kHardwareStore}) {
    stores.push_back({store, {}});
    std::copy_if(goods.begin(), goods.end(), std::back_inserter(stores.back().goods),
                 [store](const Good& good) { return good.store == store; });
  }
  for (const auto& [shop, first] : {std::pair(kFirstShop, 0), std::pair(kSecondShop, 2)}) {
    stores.push_back({shop, {}});
    for (auto i = static_cast<std::size_t>(first); i < goods.size(); i += 4)
      stores.back().goods.push_back(goods[i]);
  }
  return stores;
}

Movements::Movements(SqliteConnection& connection, DocumentBook& book, Random& random,
                     std::vector<StoreGoods> stores)
    : connection_(connection), book_(book), random_(random), stores_(std::move(stores)) {}

void Movements::Begin() {
  const Date day = Day(kFirstYear, 1, 1);
  for (const StoreGoods& store : stores_) {
    Document opening{.kind = DocumentKind::Receipt,
                     .store = store.store,
                     .creator = 1,
                     .day = day,
                     .notes = "موجودي اول دوره"};
    for (const Good& good : store.goods) {
      opening.lines.push_back(LineOf(good, random_.Between(20, 160), good.unit, day));
    }
    Book(opening);
  }
}

void Movements::Trade(int year) {
  const Period period = TradingPeriod(year);
  for (auto day = std::chrono::sys_days(period.from) + std::chrono::days(4);
       day <= std::chrono::sys_days(period.to); day += std::chrono::days(1)) {
    if (std::chrono::weekday(day) == std::chrono::Friday) continue;
    for (const StoreGoods& store : stores_) {
      if (random_.OneIn(kDaysBetweenDeliveries)) Deliver(store, day);
      if (random_.OneIn(kDaysBetweenSales)) Sell(store, day);
    }
  }
}

Document Movements::NewDocument(DocumentKind kind, const StoreGoods& store, Date day) {
  Document document{
      .kind = kind, .store = store.store, .creator = random_.Between(1, kUserCount), .day = day};
  document.registered = !random_.OneIn(kShareOfUnregistered);
  return document;
}

void Movements::Deliver(const StoreGoods& store, Date day) {
  Document receipt = NewDocument(DocumentKind::Receipt, store, day);
  if (!random_.OneIn(4)) receipt.notes = SupplierNote(random_);
  const auto wanted = static_cast<std::size_t>(random_.Between(4, 14));
  for (const std::size_t place : random_.Choose(store.goods.size(), wanted)) {
    const Good& good = store.goods[place];
    const bool packed = good.packing != 0 && !random_.OneIn(3);
    receipt.lines.push_back(packed ? LineOf(good, random_.Between(1, 8), good.packing, day)
                                   : LineOf(good, random_.Between(5, 60), good.unit, day));
  }
  Book(receipt);
}

void Movements::Sell(const StoreGoods& store, Date day) {
  Document dispatch = NewDocument(DocumentKind::Dispatch, store, day);
  dispatch.notes = SaleNote(random_);
  const auto wanted = static_cast<std::size_t>(random_.Between(4, 14));
  for (const std::size_t place : random_.Choose(store.goods.size(), wanted)) {
    const Good& good = store.goods[place];
    const int there = static_cast<int>(stock_[store.store][good.barcode]);
    const bool slip = random_.OneIn(60);
    if (there < 1 && !slip) continue;
    const int units = slip ? there + random_.Between(1, 5) : random_.Between(1, std::max(1, there / 4));
    dispatch.lines.push_back(LineOf(good, std::max(1, units), good.unit, day));
  }
  if (!dispatch.lines.empty()) Book(dispatch);
}

void Movements::CarryOver() {
  const Period year = TradingPeriod(kFirstYear);
  const Date closing = Day(kFirstYear, 12, SolarMonthDays(kFirstYear, 12));
  for (const StoreGoods& store : stores_) {
    stock_[store.store].clear();
    Document out{.kind = DocumentKind::Dispatch,
                 .store = store.store,
                 .creator = 1,
                 .day = closing,
                 .notes = "سند اختتاميه سال 1403"};
    std::map<std::string, double> books = BookStock(connection_, store.store, year);
    for (const Good& good : store.goods) {
      const double quantity = books[good.barcode];
      if (quantity <= 0) continue;
      const auto cost = static_cast<double>(CostOn(good, closing));
      out.lines.push_back({.barcode = good.barcode,
                           .quantity = quantity,
                           .unit = good.unit,
                           .unitQuantity = quantity,
                           .value = cost});
    }
    Document in{.kind = DocumentKind::Receipt,
                .store = store.store,
                .creator = 1,
                .day = Day(kSecondYear, 1, 1),
                .notes = "سند افتتاحيه سال 1404",
                .lines = out.lines};
    book_.Write(out);
    Book(in);
  }
}

void Movements::Book(const Document& document) {
  book_.Write(document);
  if (!document.registered) return;
  const int sign = document.kind == DocumentKind::Receipt ? 1 : -1;
  for (const DocumentLine& line : document.lines)
    stock_[document.store][line.barcode] += sign * line.quantity;
}

DocumentLine Movements::LineOf(const Good& good, int units, int unit, Date day) {
  // What is weighed or measured comes in quarters; halves of pieces do not exist.
  const double unitQuantity = unit == kKilogram || unit == kMetre ? units + random_.Below(4) * 0.25 : units;
  return {.barcode = good.barcode,
          .quantity = unitQuantity * BaseUnitsIn(unit),
          .unit = unit,
          .unitQuantity = unitQuantity,
          .value = ValueOf(good, day)};
}

std::optional<double> Movements::ValueOf(const Good& good, Date day) {
  if (random_.OneIn(25)) return std::nullopt;
  if (random_.OneIn(40)) return 0;
  return static_cast<double>(CostOn(good, day));
}

}  // namespace koru::sample
