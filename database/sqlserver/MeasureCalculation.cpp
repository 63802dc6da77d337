#include "database/sqlserver/MeasureCalculation.h"

#include <algorithm>
#include <string>
#include <vector>

#include "services/FixQuote.h"

namespace koru {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kTrips = 9;
constexpr std::size_t kLines = 50;
constexpr std::int64_t kMaxLines = 32'767;

Clock::duration RoundTrip(Database& database) {
  std::vector<Clock::duration> trips;
  for (int trip = 0; trip < kTrips; ++trip) {
    const auto begin = Clock::now();
    database.Open(SqlText("select 1 as Found"));
    trips.push_back(Clock::now() - begin);
  }
  std::nth_element(trips.begin(), trips.begin() + kTrips / 2, trips.end());
  return trips[kTrips / 2];
}

/// Barcodes of goods, as statements have them; empty ones where the database has too few.
std::vector<std::string> Barcodes(Database& database) {
  std::vector<std::string> barcodes;
  Recordset goods = database.Open(SqlText("select top 50 Barcode from tblGood"));
  for (; !goods.AtEnd(); goods.MoveNext()) barcodes.push_back(FixQuote(goods.Field("Barcode").Text()));
  barcodes.resize(kLines);
  return barcodes;
}

/// The unit, the receipts and dispatches, and the rate of a good.
std::vector<SqlText> StatementsOf(const std::vector<std::string>& barcodes) {
  std::vector<SqlText> statements;
  for (const std::string& barcode : barcodes) {
    statements.push_back(
        SqlText("Select ID,Name from tblGoodScale Where isnull(ScaleToBaseParent,0)=1 and ID in (Select "
                "ScaleID from tblGoodSaleScale Where Barcode = '") +
        Typed(barcode) + "')");
    statements.push_back(
        SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryReceiptDetail where "
                "LTrim(RTrim(Barcode))='") +
        Typed(barcode) + "' and ReceiptID in (select ID from tblInventoryReceipt where Code is not NULL)");
    statements.push_back(
        SqlText("Select isnull(sum(isnull(Qty,0)),0) as Qty from tblInventoryDispatchDetail where "
                "LTrim(RTrim(Barcode))='") +
        Typed(barcode) + "' and DispatchID in (select ID from tblInventoryDispatch where Code is not NULL)");
    statements.push_back(SqlText("Select isnull(Value,0) as Value from "
                                 "tblInventoryReceiptDetail,tblInventoryReceipt Where ID=ReceiptID and "
                                 "Barcode='") +
                         Typed(barcode) +
                         "' and Isnull(Value,0)>0 and Code is not NULL Order By ReceiveDate Desc");
  }
  return statements;
}

}  // namespace

CalculationTime MeasureCalculation(Database& database) {
  const Clock::duration trip = RoundTrip(database);
  const std::vector<SqlText> statements = StatementsOf(Barcodes(database));
  const auto begin = Clock::now();
  database.OpenAll(statements, [](std::size_t, const Recordset&) {});
  const Clock::duration lines = Clock::now() - begin;
  const auto times = static_cast<double>(kMaxLines) / static_cast<double>(kLines);
  return {std::chrono::duration_cast<std::chrono::microseconds>(trip),
          std::chrono::duration_cast<std::chrono::milliseconds>(lines),
          std::chrono::ceil<std::chrono::seconds>(lines * times)};
}

}  // namespace koru
