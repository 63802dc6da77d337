#pragma once

#include <cstdint>
#include <string_view>

#include "lines/CountingLines.h"
#include "lines/LineEditing.h"
#include "platform/controls/DateBox.h"
#include "platform/controls/Grid.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/Selector.h"
#include "platform/ports/Screen.h"
#include "platform/sql/SqlText.h"
#include "services/dteInvCounting.h"

namespace koru {

/// Book stock, unit and rate of goods, from the registered receipts and dispatches of the store that the
/// header names (and of its children) between the header's dates; an empty date leaves its end open. It reads
/// the header as it stands when asked, and writes to the grid alone. Everything that reads throws
/// DatabaseError.
class SystemQuantity {
 public:
  /// All must outlive the object.
  SystemQuantity(Grid& flexDetail, const TreeSelector& gmpInventory, const DateBox& gdpFromDate,
                 const DateBox& gdpToDate, ProgressBar& pgbStatus, Screen& screen, dteInvCounting& data,
                 LineEditing& editing, CountingLines& lines);

  /// The command cmdCalc: every line gets its unit, rate and book stock anew, and from them shortage, surplus
  /// and amounts; then the sums. When the database fails, the lines done so far stay and pgbStatus stays
  /// visible.
  void CalculateAllLines();

  /// Book stock of a good: received minus dispatched, in the unit of the documents, each sum taken as its 15
  /// digits and the difference rounded to 6 decimals, so that 0.1 + 0.2 - 0.3 is 0. `invID` -1 (no store
  /// chosen) has none; blanks around `barcode` do not count.
  [[nodiscard]] double GetQTy(std::int32_t invID, std::string_view barcode);

  /// The line's unit name and key: the good's base unit, else the base unit with the lowest key; as they were
  /// when there is none at all. `barcode` is written into the statements as it is.
  void FillUnit(int row, std::string_view barcode);

  /// The line's rate: of the latest dispatch with a value, else of the latest such receipt, else as it was.
  /// `barcode` is written into the statements as it is.
  void FillRate(int row, std::string_view barcode);

  /// The line's book stock, of the store that the header names.
  void FillSystemCounting(int row, std::string_view barcode);

 private:
  /// `ReceiveDate>='...' and ReceiveDate<='...' and  Code is not NULL and (InventoryID=... in (Select ...
  /// Where ID=...`; its two brackets are left open.
  [[nodiscard]] SqlText DocumentCondition(std::int32_t invID) const;
  [[nodiscard]] double SumOfQty(const SqlText& statement);
  bool FillUnitFrom(int row, const SqlText& statement);
  bool FillRateFrom(int row, const SqlText& statement);

  Grid& flexDetail_;
  const TreeSelector& gmpInventory_;
  const DateBox& gdpFromDate_;
  const DateBox& gdpToDate_;
  ProgressBar& pgbStatus_;
  Screen& screen_;
  dteInvCounting& data_;
  LineEditing& editing_;
  CountingLines& lines_;
};

}  // namespace koru
