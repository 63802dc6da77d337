#include "database/sample/SampleGoods.h"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "database/sample/SampleGoodNames.h"
#include "database/sample/SampleGroups.h"
#include "database/sample/SampleRows.h"
#include "database/sample/SampleStores.h"
#include "database/sample/SampleUnits.h"

namespace koru::sample {
namespace {

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(separator, begin), text.size());
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

/// The same text as a keyboard with the Persian forms of yeh and kaf writes it.
std::string WithPersianLetters(std::string text) {
  const auto replace = [&text](std::string_view arabic, std::string_view persian) {
    for (auto at = text.find(arabic); at != std::string::npos; at = text.find(arabic, at + persian.size())) {
      text.replace(at, arabic.size(), persian);
    }
  };
  replace("ي", "ی");
  replace("ك", "ک");
  return text;
}

std::string NameOf(std::string_view stem, std::string_view kind, std::string_view size) {
  std::string name(stem);
  for (const std::string_view word : {kind, size}) {
    if (!name.empty() && !word.empty()) name += ' ';
    name += word;
  }
  return name;
}

class GoodsWriter {
 public:
  GoodsWriter(SqliteConnection& connection, Random& random)
      : random_(random),
        good_(RowWriter::Inserts(connection, "tblGood")),
        scale_(RowWriter::Inserts(connection, "tblGoodSaleScale")) {}

  void WriteFamilies(int store, std::span<const Family> families) {
    ++maker_;
    for (const Family& family : families) {
      for (const std::string_view kind : Split(family.kinds, '|')) {
        for (const std::string_view size : Split(family.sizes, '|')) WriteGood(store, family, kind, size);
      }
    }
  }

  /// Something that is kept without a barcode and without prices, so that it can never be counted.
  void WriteGoodWithoutBarcode() {
    const std::optional<double> unknown;
    good_.Write({{"Barcode", ""},
                 {"Code", "02010999"},
                 {"Name", "كارتن خالي بسته‌بندي"},
                 {"RetailPrice", unknown},
                 {"CurrencyRetailPrice", unknown},
                 {"CCurrencyTypeID", unknown},
                 {"StandardDiscountPercent", unknown},
                 {"SaleScaleID", kPiece},
                 {"PurchaseScaleID", kPiece},
                 {"TypeID", kOwnUse},
                 {"GoodGroupID", 21},
                 {"TmpLocationID", unknown},
                 {"Notes", "براي بسته‌بندي مرسولات"}});
  }

  [[nodiscard]] std::vector<Good> TakeGoods() { return std::move(goods_); }

 private:
  void WriteGood(int store, const Family& family, std::string_view kind, std::string_view sizeAndPrice) {
    const std::size_t equals = sizeAndPrice.find('=');
    const std::int64_t percent = std::stoll(std::string(sizeAndPrice.substr(equals + 1)));
    // Prices end in three zeros, as on every shelf.
    const std::int64_t price = family.price * percent / 100 / 1000 * 1000;
    std::string name = NameOf(family.stem, kind, sizeAndPrice.substr(0, equals));
    if (random_.OneIn(4)) name = WithPersianLetters(name);

    const Good good{Barcode(maker_, ++item_), store, family.unit, family.packing, price * 78 / 100};
    WriteRow(good, family, name, price);
    WriteScales(good);
    goods_.push_back(good);
  }

  void WriteRow(const Good& good, const Family& family, const std::string& name, std::int64_t price) {
    // One after the other: the numbers of the generator follow this order, not that of the columns.
    const auto code = CodeOf(family.group);
    const auto retail = random_.OneIn(25) ? std::nullopt : std::optional(static_cast<double>(price));
    const auto currency =
        random_.OneIn(12) ? std::optional(random_.Between(1, kCurrencyCount)) : std::nullopt;
    const auto currencyPrice =
        currency ? std::optional(static_cast<double>(price) / 1'000'000) : std::nullopt;
    const auto discount = random_.OneIn(3) ? std::optional(random_.Between(0, 6) * 2.5) : std::nullopt;
    const int type = random_.OneIn(30) ? kOwnUse : kTradeGoods;
    const auto place = PlaceOf(good.store);
    const auto note = NoteOn(good);
    const int packing = good.packing == 0 ? good.unit : good.packing;
    good_.Write({{"Barcode", good.barcode},
                 {"Code", code},
                 {"Name", name},
                 {"RetailPrice", retail},
                 {"CurrencyRetailPrice", currencyPrice},
                 {"CCurrencyTypeID", currency},
                 {"StandardDiscountPercent", discount},
                 {"SaleScaleID", good.unit},
                 {"PurchaseScaleID", packing},
                 {"TypeID", type},
                 {"GoodGroupID", family.group},
                 {"TmpLocationID", place},
                 {"Notes", note}});
  }

  std::optional<std::string> CodeOf(int group) {
    const std::string number = std::to_string(1000 + ++numbers_[group]).substr(1);
    if (random_.OneIn(40)) return std::nullopt;
    return GroupCode(group) + number;
  }

  std::optional<int> PlaceOf(int store) {
    if (random_.OneIn(30)) return std::nullopt;
    return ShelfOf(store, random_.Below(6));
  }

  std::optional<std::string> NoteOn(const Good& good) {
    if (good.store == kColdStore) return "در جاي سرد نگهداري شود";
    if (good.store == kDryFoodStore && random_.OneIn(6)) return "تاريخ انقضا هنگام تحويل كنترل شود";
    if (random_.OneIn(25)) return "مارك 'ممتاز' روي بسته چاپ شده است";
    return std::nullopt;
  }

  /// A few goods have no sale unit at all and a few only the packing: both are then counted in the first base
  /// unit.
  void WriteScales(const Good& good) {
    if (random_.OneIn(60)) return;
    const bool packingOnly = good.packing != 0 && random_.OneIn(60);
    if (!packingOnly) scale_.Write({{"Barcode", good.barcode}, {"ScaleID", good.unit}});
    if (good.packing != 0) scale_.Write({{"Barcode", good.barcode}, {"ScaleID", good.packing}});
  }

  Random& random_;
  RowWriter good_;
  RowWriter scale_;
  std::vector<Good> goods_;
  std::map<int, int> numbers_;
  int maker_ = 0;
  int item_ = 0;
};

}  // namespace

std::string Barcode(int maker, int item) {
  std::string code =
      "626" + std::to_string(100000 + maker).substr(1) + std::to_string(10000 + item).substr(1);
  int sum = 0;
  for (std::size_t i = 0; i < code.size(); ++i) sum += (code[i] - '0') * (i % 2 == 0 ? 1 : 3);
  return code + std::to_string((10 - sum % 10) % 10);
}

std::vector<Good> WriteGoods(SqliteConnection& connection, Random& random) {
  GoodsWriter writer(connection, random);
  writer.WriteFamilies(kDryFoodStore, DryFood());
  writer.WriteFamilies(kColdStore, ColdFood());
  writer.WriteFamilies(kCleaningStore, Cleaning());
  writer.WriteFamilies(kHardwareStore, Hardware());
  writer.WriteGoodWithoutBarcode();
  return writer.TakeGoods();
}

}  // namespace koru::sample
