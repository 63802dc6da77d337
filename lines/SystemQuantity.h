#pragma once

#include <cstdint>
#include <string_view>

#include "counting/controls/InvCountingControls.h"
#include "lines/CountingLines.h"
#include "lines/LineEditing.h"
#include "platform/sql/SqlText.h"
#include "services/SharedState.h"

namespace koru {

/// Book stock, unit and rate of goods. They come from the registered receipts and dispatches of the store in
/// the header and of its children, between the dates in the header; an empty date sets no bound. The header
/// is read at each call; only the line grid is written. Everything that reads the database throws
/// DatabaseError.
class SystemQuantity {
 public:
  /// All must outlive the object.
  SystemQuantity(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                 LineEditing& editing);

  /// The command cmdCalc: reads unit, rate and book stock of every line again, derives shortage, surplus and
  /// amounts, and sums. When the database fails, the lines done by then keep their results and pgbStatus
  /// stays visible.
  void CalculateAllLines();

  /// Book stock of a good: received minus dispatched, in the unit of the documents, each sum taken as its 15
  /// digits and the difference rounded to 6 decimals, so that 0.1 + 0.2 - 0.3 is 0. `invID` -1 (no store
  /// chosen) has none; blanks around `barcode` do not count.
  [[nodiscard]] double GetQTy(std::int32_t invID, std::string_view barcode);

  /// Sets the line's unit name and key: the good's base unit, or else the base unit with the lowest key.
  /// Without any base unit both stay. `barcode` is written into the statements unchanged.
  void FillUnit(int row, std::string_view barcode);

  /// Sets the line's rate: that of the latest dispatch with a value, or else of the latest receipt with one.
  /// Of several on one date the embedded database takes the one with the highest key; a server may take any.
  /// Without either it stays. `barcode` is written into the statements unchanged.
  void FillRate(int row, std::string_view barcode);

  /// Sets the line's book stock in the store of the header.
  void FillSystemCounting(int row, std::string_view barcode);

 private:
  /// `ReceiveDate>='...' and ReceiveDate<='...' and  Code is not NULL and (InventoryID=... in (Select ...
  /// Where ID=...`; its two parentheses are left open.
  [[nodiscard]] SqlText DocumentCondition(std::int32_t invID) const;
  [[nodiscard]] double SumOfQty(const SqlText& statement);
  bool FillUnitFrom(int row, const SqlText& statement);
  bool FillRateFrom(int row, const SqlText& statement);

  InvCountingControls& controls_;
  Grid& flexDetail_;
  SharedState& shared_;
  CountingLines& lines_;
  LineEditing& editing_;
};

}  // namespace koru
