#include "database/sample/SampleUnits.h"

#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "database/sample/SampleRows.h"
#include "database/sample/SampleTree.h"

namespace koru::sample {
namespace {

struct Unit {
  int id;
  int parent;  // the base unit; 0 for a base unit
  std::string_view name;
  std::optional<double> factor;
};

constexpr Unit kUnits[] = {
    {kPiece, 0, "عدد", 1},
    {kKilogram, 0, "كيلوگرم", 1},
    {kLitre, 0, "ليتر", 1},
    {kMetre, 0, "متر", 1},
    {kPackOf6, kPiece, "بسته 6 عددي", 6},
    {kCartonOf12, kPiece, "كارتن 12 عددي", 12},
    {kCartonOf24, kPiece, "كارتن 24 عددي", 24},
    {kGram, kKilogram, "گرم", 0.001},
    {kBagOf10Kilograms, kKilogram, "كيسه 10 كيلويي", 10},
    {kMillilitre, kLitre, "ميلي‌ليتر", 0.001},
    {kRollOf50Metres, kMetre, "رول 50 متري", 50},
    {kBranch, kMetre, "شاخه", std::nullopt},
};

}  // namespace

int BaseUnitsIn(int unit) {
  for (const Unit& known : kUnits) {
    if (known.id == unit) return static_cast<int>(known.factor.value_or(1));
  }
  return 1;
}

void WriteUnits(SqliteConnection& connection) {
  RowWriter rows = RowWriter::Inserts(connection, "tblGoodScale");
  std::vector<std::pair<int, int>> nodes;
  for (const Unit& unit : kUnits) {
    const std::optional<int> parent = unit.parent == 0 ? std::nullopt : std::optional(unit.parent);
    rows.Write(
        {{"ID", unit.id}, {"ParentID", parent}, {"Name", unit.name}, {"ScaleToBaseParent", unit.factor}});
    nodes.emplace_back(unit.id, unit.parent);
  }
  WriteClosure(connection, "tblGoodScaleParent", nodes);
}

}  // namespace koru::sample
