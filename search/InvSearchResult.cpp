#include "search/InvSearchResult.h"

#include <array>
#include <string>
#include <string_view>

namespace koru {
namespace {

constexpr int kRowNumber = 0;

/// The fields of the columns after the row number.
constexpr std::array<std::string_view, 12> kFields = {
    "ID",          "Code",     "ManualCode", "InvName",  "FarsiCreateDate", "FullName", "FarsiFromDate",
    "FarsiToDate", "Counter1", "Counter2",   "Counter3", "Accepter"};

}  // namespace

void SetUpInvSearchResult(Grid& flexSearch) {
  flexSearch.SetCols(static_cast<int>(kFields.size()) + 1);
  flexSearch.SetFormatString(
      "   رديف"
      "|^شماره رايانه اي"
      "|^شماره تاييد شده"
      "|^شماره دستي    "
      "|^انبار                 "
      "|^تاريخ تهيه     "
      "|^تهيه كننده          "
      "|^از تاريخ        "
      "|^تا تاريخ          "
      "|^        شمارشگر اول      \u00A0"
      "|^       شمارشگر دوم       \u00A0"
      "|^        شمارشگر سوم      \u00A0"
      "|^تاييد كننده شمارش           ");
}

void ShowFoundCountings(Grid& flexSearch, Recordset& found) {
  if (found.AtEnd()) return;
  std::array<std::size_t, kFields.size()> places{};
  for (std::size_t i = 0; i < kFields.size(); ++i) places[i] = found.ColumnIndex(kFields[i]);
  const GridRedrawOff noRedraw(flexSearch);
  for (; !found.AtEnd(); found.MoveNext()) {
    const int row = flexSearch.Rows();
    flexSearch.AddItem(std::to_string(row));
    for (std::size_t i = 0; i < places.size(); ++i) {
      flexSearch.SetTextMatrix(row, static_cast<int>(i) + 1, found.Field(places[i]).Text());
    }
  }
}

void SortFoundCountings(Grid& flexSearch, int col) {
  const GridRedrawOff noRedraw(flexSearch);
  flexSearch.Sort(col, SortMode::GenericAscending);
  for (int row = 1; row < flexSearch.Rows(); ++row)
    flexSearch.SetTextMatrix(row, kRowNumber, std::to_string(row));
}

}  // namespace koru
