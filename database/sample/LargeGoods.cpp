#include "database/sample/LargeGoods.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "database/sample/SampleGoods.h"
#include "database/sample/SampleGroups.h"
#include "database/sample/SampleRows.h"
#include "database/sample/SampleUnits.h"

namespace koru::sample {
namespace {

constexpr int kGoodsOfOneMaker = 500;
constexpr int kGoodsWithoutSaleUnit = 60;  // one good in this many

constexpr std::array<std::string_view, 16> kStems = {"برنج طارم",
                                                     "چاي شكسته",
                                                     "روغن كنجد",
                                                     "رب گوجه‌فرنگي",
                                                     "پنير سفيد",
                                                     "كره گياهي",
                                                     "شامپو بچه",
                                                     "مايع ظرفشويي",
                                                     "دستمال كاغذي",
                                                     "پيچ چوب",
                                                     "لامپ رشته‌اي",
                                                     "دفتر صد برگ",
                                                     "خودكار آبي",
                                                     "كابل افشان",
                                                     "شير آب",
                                                     "رنگ روغني"};
constexpr std::array<int, 5> kGroups = {111, 112, 113, 14, 12};

}  // namespace

std::vector<LargeGood> MakeLargeGoods(Random& random, int count) {
  std::vector<LargeGood> goods(static_cast<std::size_t>(count));
  for (int number = 0; number < count; ++number) {
    LargeGood& good = goods[static_cast<std::size_t>(number)];
    const auto stem = static_cast<std::size_t>(number) % kStems.size();
    good.barcode = Barcode(number / kGoodsOfOneMaker + 1, number % kGoodsOfOneMaker + 1);
    good.code = std::to_string(1'000'000 + number);
    good.name =
        std::string(kStems.at(stem)) + " سري " + std::to_string(number / static_cast<int>(kStems.size()) + 1);
    good.unit = random.OneIn(10) ? kKilogram : kPiece;
    good.price = random.Between(20, 2000) * 1000;
  }
  return goods;
}

void WriteLargeGoods(SqliteConnection& connection, const std::vector<LargeGood>& goods) {
  RowWriter good = RowWriter::Inserts(connection, "tblGood");
  RowWriter scale = RowWriter::Inserts(connection, "tblGoodSaleScale");
  std::size_t number = 0;
  for (const LargeGood& row : goods) {
    good.Write({{"Barcode", row.barcode},
                {"Code", row.code},
                {"Name", row.name},
                {"RetailPrice", row.price},
                {"TotalQty", row.total},
                {"SaleScaleID", row.unit},
                {"PurchaseScaleID", row.unit},
                {"TypeID", kTradeGoods},
                {"GoodGroupID", kGroups.at(number % kGroups.size())}});
    if (++number % kGoodsWithoutSaleUnit == 0) continue;
    scale.Write({{"Barcode", row.barcode}, {"ScaleID", row.unit}});
    if (row.unit == kPiece && number % 3 == 0) {
      scale.Write({{"Barcode", row.barcode}, {"ScaleID", kCartonOf12}});
    }
  }
}

}  // namespace koru::sample
