#include "database/sample/LargeDocuments.h"

#include <chrono>
#include <optional>
#include <string>
#include <utility>

#include "database/Sample.h"
#include "database/sample/SampleDocuments.h"
#include "database/sample/SampleMovements.h"
#include "database/sample/SamplePeople.h"
#include "database/sample/SampleRows.h"
#include "database/sample/SampleStores.h"
#include "database/sample/SampleTree.h"

namespace koru::sample {
namespace {

constexpr int kStartYear = 1402;
constexpr int kLastYear = 1404;
constexpr int kShareOfUnregistered = 10;  // one document in this many

/// The parent of a store; 0 for none.
int ParentOf(int store) {
  if (store > kCentralStore && store <= kLastOfCentral) return kCentralStore;
  if (store > 10 && store <= 16) return 10;
  return store > 17 && store <= 19 ? 17 : 0;
}

/// A number below `count`; smaller numbers are more frequent.
int Uneven(Random& random, int count) { return random.Below(random.Below(count) + 1); }

/// Writes the documents one by one and adds them up.
class LargeBook {
 public:
  LargeBook(SqliteConnection& connection, Random& random, std::vector<LargeGood>& goods)
      : book_(connection), random_(random), goods_(goods) {}

  void Write(DocumentKind kind, Date day, int lines) {
    const int store = Uneven(random_, kLargeStores) + 1;
    Document document{.kind = kind, .store = store, .creator = random_.Between(1, kUserCount), .day = day};
    document.registered = !random_.OneIn(kShareOfUnregistered);
    for (int line = 0; line < lines; ++line) document.lines.push_back(WriteLine(document));
    book_.Write(document);
  }

 private:
  DocumentLine WriteLine(const Document& document) {
    // Spreads the goods that move most over all makers. 7,919 and the number of goods have no common factor.
    const auto count = static_cast<std::int64_t>(goods_.size());
    const auto place = Uneven(random_, static_cast<int>(count)) * std::int64_t{7919} % count;
    LargeGood& good = goods_[static_cast<std::size_t>(place)];
    const bool isReceipt = document.kind == DocumentKind::Receipt;
    const double quantity = random_.Between(1, isReceipt ? 60 : 50) + random_.Below(4) * 0.25;
    std::optional<double> value;
    if (!random_.OneIn(20)) value = random_.OneIn(20) ? 0 : PriceOn(good, document);
    if (document.registered) Add(good, document, isReceipt ? quantity : -quantity, value.value_or(0));
    return {.barcode = good.barcode,
            .quantity = quantity,
            .unit = good.unit,
            .unitQuantity = quantity,
            .value = value};
  }

  /// A good has one price per date, so that the latest rate does not depend on the order of the documents of
  /// one date.
  static int PriceOn(const LargeGood& good, const Document& document) {
    const auto day = static_cast<int>(std::chrono::sys_days(document.day).time_since_epoch().count());
    return good.price + (day * 37 + (document.kind == DocumentKind::Receipt ? 0 : 13)) % 100 * 500;
  }

  static void Add(LargeGood& good, const Document& document, double change, double value) {
    static const Period kPeriod = LargePeriod();
    good.total += change;
    if (document.store > kLastOfCentral || document.day < kPeriod.from || document.day > kPeriod.to) return;
    good.books += change;
    if (value > 0) (document.kind == DocumentKind::Receipt ? good.receiptRate : good.dispatchRate) = value;
  }

  DocumentBook book_;
  Random& random_;
  std::vector<LargeGood>& goods_;
};

}  // namespace

Period LargePeriod() { return {Day(kLastYear, 1, 1), kSampleToday}; }

void WriteLargeStores(SqliteConnection& connection) {
  RowWriter stores = RowWriter::Inserts(connection, "tblInventory");
  SqliteStatement allow =
      connection.Prepare("insert or ignore into tblInventoryUser (UserID, InventoryID) values (1, ?)");
  std::vector<std::pair<int, int>> nodes;
  for (int id = 1; id <= kLargeStores; ++id) {
    const int parent = ParentOf(id);
    stores.Write({{"ID", id},
                  {"ParentID", parent == 0 ? std::nullopt : std::optional(parent)},
                  {"Name", "انبار شماره " + std::to_string(id)},
                  {"IsDefault", id == kCentralStore}});
    allow.Bind(1, id);
    allow.Run();
    nodes.emplace_back(id, parent);
  }
  WriteClosure(connection, "tblInventoryParent", nodes);
}

void WriteLargeDocuments(SqliteConnection& connection, Random& random, const LargeCounts& counts,
                         std::vector<LargeGood>& goods, const std::function<void(int)>& done) {
  LargeBook book(connection, random, goods);
  const std::chrono::sys_days first(Day(kStartYear, 1, 1));
  const auto days = (std::chrono::sys_days(kSampleToday) - first).count() + 1;
  const int average = counts.documentLines / counts.documents;
  int more = 0;
  for (int number = 0; number < counts.documents; ++number) {
    const std::chrono::days since(days * number / counts.documents);
    // Each second document has the lines that the one before it lacks, so that the total is exact.
    more = number % 2 == 0 ? random.Below(average) : -more;
    book.Write(number % 4 < 2 ? DocumentKind::Receipt : DocumentKind::Dispatch, first + since,
               average + more);
    if (number % (counts.documents / 100) == 0) done(static_cast<int>(number * 100LL / counts.documents));
  }
}

}  // namespace koru::sample
