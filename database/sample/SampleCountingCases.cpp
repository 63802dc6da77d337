#include "database/sample/SampleCountingCases.h"

#include <algorithm>

#include "database/sample/SamplePeople.h"
#include "database/sample/SampleSpecialGoods.h"
#include "database/sample/SampleStores.h"

namespace koru::sample {

CountingCases::CountingCases(SqliteConnection& connection, DocumentBook& documents, Random& random,
                             const std::vector<StoreGoods>& stores)
    : connection_(connection),
      documents_(documents),
      random_(random),
      stores_(stores),
      book_(connection, documents) {}

const std::vector<Good>& CountingCases::GoodsOf(int store) const {
  return std::find_if(stores_.begin(), stores_.end(),
                      [store](const StoreGoods& known) { return known.store == store; })
      ->goods;
}

/// The header of an ordinary counting, from the first day of the year to the day of the counting.
Counting CountingCases::Of(int id, int store, Date day, int year) {
  Counting counting;
  counting.id = id;
  counting.manualCode = "ش-" + std::to_string(year) + "/" + std::to_string(id);
  counting.store = store;
  counting.creator = id % 3 == 0 ? 4 : 1;
  counting.day = day;
  counting.period = Period{Day(year, 1, 1), day};
  counting.counters = {4, 6, id % 2 == 0 ? std::optional(7) : std::nullopt};
  counting.confirmer = id % 4 == 0 ? 10 : 3;
  counting.notes = "شمارش دوره‌اي انبار";
  return counting;
}

Counting CountingCases::Counted(int id, int store, Date day, int year, std::size_t lines, Finding finding) {
  Counting counting = Of(id, store, day, year);
  LineMaker maker(connection_, random_, store, *counting.period);
  counting.lines = maker.Counted(GoodsOf(store), lines, finding);
  return counting;
}

void CountingCases::WriteFirstYear() {
  const Date autumn = Day(kFirstYear, 7, 1);
  const Date winter = Day(kFirstYear, 9, 30);
  const Date yearEnd = TradingPeriod(kFirstYear).to;
  book_.WriteFinal(Counted(1, kDryFoodStore, autumn, kFirstYear, 60, Finding::Both));
  book_.WriteFinal(Counted(2, kHardwareStore, winter, kFirstYear, 50, Finding::Shortages));
  const Adjustments received =
      book_.WriteFinal(Counted(3, kCleaningStore, yearEnd, kFirstYear, 50, Finding::Both));
  documents_.Register(DocumentKind::Receipt, received.receipt.value());
  const Adjustments dispatched =
      book_.WriteFinal(Counted(4, kFirstShop, yearEnd, kFirstYear, 45, Finding::Both));
  documents_.Register(DocumentKind::Dispatch, dispatched.dispatch.value());
  book_.WriteFinal(Counted(5, kColdStore, yearEnd, kFirstYear, 30, Finding::Nothing));
}

void CountingCases::WriteSecondYear() {
  book_.WriteFinal(Counted(6, kDryFoodStore, Day(kSecondYear, 6, 31), kSecondYear, 40, Finding::Surpluses));
  WriteFinalWithLostDocuments();
  WriteIncomplete();
  WriteUnusualLines();
  WriteUnderWay();
  WriteReturns();
}

/// Registered, returned and registered again without a difference: the links still name the deleted
/// documents.
void CountingCases::WriteFinalWithLostDocuments() {
  const Counting counting =
      Counted(7, kSecondShop, Day(kSecondYear, 9, 30), kSecondYear, 25, Finding::Nothing);
  book_.WriteFinal(counting);
  Adjustments lost;
  for (const DocumentKind kind : {DocumentKind::Dispatch, DocumentKind::Receipt}) {
    const int id = documents_.Write({kind, counting.store, counting.creator, counting.day, false, {}, {}});
    const bool isReceipt = kind == DocumentKind::Receipt;
    (isReceipt ? lost.receipt : lost.dispatch) = id;
    connection_.Execute(std::string("delete from tblInventory") + (isReceipt ? "Receipt" : "Dispatch") +
                        " where ID = " + std::to_string(id));
  }
  book_.Link(counting.id, lost);
}

void CountingCases::WriteIncomplete() {
  const Date day = Day(kSecondYear, 10, 15);
  Counting bare = Counted(8, kCleaningStore, day, kSecondYear, 20, Finding::Both);
  bare.manualCode.reset();
  bare.counters = {};
  bare.confirmer.reset();
  bare.notes.reset();
  book_.Write(bare);

  book_.Write(Of(9, kDryFoodStore, day, kSecondYear));

  Counting orphan = Counted(12, kHardwareStore, day, kSecondYear, 20, Finding::Both);
  orphan.creator = kDepartedUser;
  book_.Write(orphan);

  Counting quoted = Counted(13, kSecondShop, day, kSecondYear, 15, Finding::Both);
  quoted.notes = "قفسه 'ب' و بسته‌هاي 12' شمرده نشد";
  book_.Write(quoted);
}

void CountingCases::WriteUnusualLines() {
  const Date day = Day(kSecondYear, 11, 10);
  Counting withoutUnit = Counted(10, kDryFoodStore, day, kSecondYear, 10, Finding::Shortages);
  withoutUnit.lines.at(1).unit.reset();
  book_.Write(withoutUnit);

  Counting unknownGood = Counted(11, kDryFoodStore, day, kSecondYear, 10, Finding::Both);
  unknownGood.lines.at(1).barcode = Barcode(99999, 9999);
  book_.Write(unknownGood);

  Counting timeless = Of(14, kColdStore, day, kSecondYear);
  timeless.period.reset();
  LineMaker maker(connection_, random_, kColdStore, {Day(kFirstYear, 1, 1), TradingPeriod(kSecondYear).to});
  timeless.lines = maker.Counted(GoodsOf(kColdStore), 20, Finding::Both);
  book_.Write(timeless);
}

void CountingCases::WriteUnderWay() {
  Counting counting = Of(15, kDryFoodStore, TradingPeriod(kSecondYear).to, kSecondYear);
  counting.notes = "انبارگرداني پايان سال 1404";
  LineMaker maker(connection_, random_, kDryFoodStore, *counting.period);
  counting.lines = maker.UnderWay(GoodsOf(kDryFoodStore), 120);
  book_.Write(counting);
}

void CountingCases::WriteReturns() {
  Counting twice = Of(16, kReturnsStore, TradingPeriod(kSecondYear).to, kSecondYear);
  LineMaker maker(connection_, random_, kReturnsStore, *twice.period);
  const std::string stockOf5 = BarcodeOf(SpecialGood::StockOf5);
  twice.lines = {maker.Accepted(stockOf5, 3), maker.Accepted(stockOf5, 2)};
  book_.Write(twice);

  Counting ready = Of(17, kReturnsStore, TradingPeriod(kSecondYear).to, kSecondYear);
  ready.lines = {maker.Accepted(stockOf5, 7),
                 maker.Accepted(BarcodeOf(SpecialGood::BelowZero), 0),
                 maker.Accepted(BarcodeOf(SpecialGood::NoDocuments), 1),
                 maker.Accepted(BarcodeOf(SpecialGood::RateOfReceipt), 6),
                 maker.Accepted(BarcodeOf(SpecialGood::NotRegistered), 0),
                 maker.Accepted(BarcodeOf(SpecialGood::BlanksAroundBarcode), 7)};
  book_.Write(ready);
}

}  // namespace koru::sample
