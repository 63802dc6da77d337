#include "lines/StockMoves.h"

#include <algorithm>
#include <utility>

#include "lines/DocumentCondition.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

constexpr int kStockDecimals = 6;
constexpr std::size_t kShownWithoutExplanation = 5;  ///< of each kind

std::vector<StockMove> MovesIn(Recordset found, StockMove::Kind kind) {
  std::vector<StockMove> moves;
  std::string lastID;
  const double sign = kind == StockMove::Kind::Receipt ? 1 : -1;
  for (; !found.AtEnd(); found.MoveNext()) {
    std::string id = found.Field("ID").Text();
    if (id != lastID)
      moves.push_back({kind, found.Field("Code").Text(), found.Field("FarsiReceiveDate").Text(), 0});
    moves.back().quantity += sign * found.Field("Qty").Number();
    lastID = std::move(id);
  }
  if (found.RecordCount() == StockMovesReader::kMaxLinesOfDocuments) moves.pop_back();
  return moves;
}

/// `from`: from the lines of documents to the condition on the barcode.
SqlText LatestLines(FixedSql from, const std::string& barcode, const SqlText& documents) {
  return SqlText("Select top ") + static_cast<std::int32_t>(StockMovesReader::kMaxLinesOfDocuments) +
         " ID,Code,isnull(FarsiReceiveDate,'') as FarsiReceiveDate,isnull(Qty,0) as Qty from " + from +
         Typed(barcode) + "' and " + documents + ")) Order By Code Desc,ID Desc";
}

/// The sums of the first 0, 1, 2, ... documents.
std::vector<double> SumsOf(const std::vector<StockMove>& moves) {
  std::vector<double> sums = {0};
  for (const StockMove& move : moves) sums.push_back(sums.back() + move.quantity);
  return sums;
}

std::vector<StockMove> LatestOf(const StockMoves& all, std::size_t receipts, std::size_t dispatches) {
  std::vector<StockMove> latest;
  const auto take = [&latest](const std::vector<StockMove>& moves, std::size_t count) {
    latest.insert(latest.end(), moves.begin(),
                  moves.begin() + static_cast<std::ptrdiff_t>(std::min(count, moves.size())));
  };
  take(all.receipts, receipts);
  take(all.dispatches, dispatches);
  std::stable_sort(latest.begin(), latest.end(),
                   [](const StockMove& a, const StockMove& b) { return a.date > b.date; });
  return latest;
}

}  // namespace

StockMovesReader::StockMovesReader(dteInvCounting& data, const InvCountingControls& controls,
                                   std::int32_t invID)
    : data_(data), documents_(DocumentCondition(controls, invID)) {}

StockMoves StockMovesReader::Latest(const std::string& barcode) {
  const std::vector<SqlText> statements = {
      LatestLines(
          "tblInventoryReceiptDetail,tblInventoryReceipt Where ID=ReceiptID and LTrim(RTrim(Barcode))='",
          barcode, documents_),
      LatestLines(
          "tblInventoryDispatchDetail,tblInventoryDispatch Where ID=DispatchID and LTrim(RTrim(Barcode))='",
          barcode, documents_)};
  StockMoves latest;
  data_.rssqlCommon.OpenAll(statements, [&latest](std::size_t i, const Recordset& found) {
    (i == 0 ? latest.receipts : latest.dispatches) =
        MovesIn(found, i == 0 ? StockMove::Kind::Receipt : StockMove::Kind::Dispatch);
  });
  return latest;
}

MoveExplanation ExplainMove(double difference, const StockMoves& latest) {
  const std::vector<double> received = SumsOf(latest.receipts);
  const std::vector<double> dispatched = SumsOf(latest.dispatches);
  const std::size_t most = latest.receipts.size() + latest.dispatches.size();
  for (std::size_t documents = 1; documents <= most; ++documents) {
    for (std::size_t receipts = 0; receipts <= documents && receipts < received.size(); ++receipts) {
      const std::size_t dispatches = documents - receipts;
      if (dispatches >= dispatched.size()) continue;
      if (Round(received[receipts] + dispatched[dispatches] - difference, kStockDecimals) == 0)
        return {LatestOf(latest, receipts, dispatches), true};
    }
  }
  return {LatestOf(latest, kShownWithoutExplanation, kShownWithoutExplanation), false};
}

}  // namespace koru
