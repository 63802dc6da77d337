#include "database/sample/SampleGroups.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "database/sample/SampleRows.h"
#include "database/sample/SampleTree.h"

namespace koru::sample {
namespace {

struct Group {
  int id;
  int parent;  // 0 for none
  std::string_view code;
  std::string_view name;
};

constexpr Group kGroups[] = {
    {1, 0, "01", "مواد غذايي"},
    {11, 1, "0101", "غلات و حبوبات"},
    {111, 11, "010101", "برنج"},
    {112, 11, "010102", "حبوبات"},
    {113, 11, "010103", "آرد و ماكاروني"},
    {12, 1, "0102", "كنسرو، ترشي و مربا"},
    {13, 1, "0103", "چاي، قهوه و نوشيدني"},
    {14, 1, "0104", "روغن، قند و ادويه"},
    {15, 1, "0105", "تنقلات و خشكبار"},
    {16, 1, "0106", "لبنيات و مواد يخچالي"},
    {2, 0, "02", "شوينده و بهداشتي"},
    {21, 2, "0201", "شوينده و نظافت"},
    {22, 2, "0202", "بهداشت فردي"},
    {23, 2, "0203", "سلولزي"},
    {3, 0, "03", "لوازم‌التحرير"},
    {31, 3, "0301", "نوشت‌افزار"},
    {32, 3, "0302", "كاغذ و بايگاني"},
    {4, 0, "04", "ابزار و برق"},
    {41, 4, "0401", "ابزار دستي"},
    {42, 4, "0402", "برق و روشنايي"},
    {43, 4, "0403", "پيچ و اتصالات"},
    {5, 0, "05", "لوازم آشپزخانه"},
    {51, 5, "0501", "ظروف"},
};

}  // namespace

std::string GroupCode(int group) {
  for (const Group& known : kGroups) {
    if (known.id == group) return std::string(known.code);
  }
  return {};
}

void WriteGroups(SqliteConnection& connection) {
  RowWriter rows = RowWriter::Inserts(connection, "tblGoodGroup");
  std::vector<std::pair<int, int>> nodes;
  for (const Group& group : kGroups) {
    const std::optional<int> parent = group.parent == 0 ? std::nullopt : std::optional(group.parent);
    rows.Write({{"ID", group.id}, {"ParentID", parent}, {"Code", group.code}, {"Name", group.name}});
    nodes.emplace_back(group.id, group.parent);
  }
  WriteClosure(connection, "tblGoodGroupParent", nodes);

  RowWriter types = RowWriter::Inserts(connection, "tblGoodType");
  types.Write({{"ID", kTradeGoods}, {"Name", "كالاي بازرگاني"}});
  types.Write({{"ID", kOwnUse}, {"Name", "مواد مصرفي"}});
  types.Write({{"ID", 3}, {"Name", "كالاي اماني"}});
  RowWriter currencies = RowWriter::Inserts(connection, "tblPelinCurrencyType");
  currencies.Write({{"ID", 1}, {"Name", "دلار"}});
  currencies.Write({{"ID", 2}, {"Name", "يورو"}});
  currencies.Write({{"ID", 3}, {"Name", "درهم"}});
}

}  // namespace koru::sample
