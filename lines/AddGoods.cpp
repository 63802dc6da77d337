#include "lines/AddGoods.h"

#include <string>
#include <unordered_set>
#include <utility>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The barcodes of all lines, so that thirty thousand goods are not each looked for in thirty thousand lines.
class LineBarcodes {
 public:
  explicit LineBarcodes(const Grid& lines) {
    for (int row = 1; row < lines.Rows(); ++row)
      barcodes_.emplace(lines.TextMatrix(row, LineColumn::Barcode));
  }
  /// Whether a line holds exactly this barcode: case and blanks count.
  [[nodiscard]] bool GoodExistsInGrid(const std::string& barcode) const {
    return barcodes_.contains(barcode);
  }
  void Add(const std::string& barcode) { barcodes_.insert(barcode); }

 private:
  std::unordered_set<std::string> barcodes_;
};

}  // namespace

AddGoods::AddGoods(Grid& flexDetail, const TreeSelector& gmpInventory, ProgressBar& pgbStatus, Screen& screen,
                   dteInvCounting& data, const Messages& messages, SystemQuantity& quantity,
                   CountingLines& lines, std::function<void()> showGoodSearch,
                   const SqlText& goodSearchCondition)
    : flexDetail_(flexDetail),
      gmpInventory_(gmpInventory),
      pgbStatus_(pgbStatus),
      screen_(screen),
      data_(data),
      messages_(messages),
      quantity_(quantity),
      lines_(lines),
      showGoodSearch_(std::move(showGoodSearch)),
      goodSearchCondition_(goodSearchCondition) {}

std::optional<int> AddGoods::Run() {
  if (gmpInventory_.NothingSelected()) {
    messages_.ShowMessage(sentences::kError, "انبار انتخاب نشده است.");
    return std::nullopt;
  }
  if (flexDetail_.Rows() > 1) {
    const int answer = messages_.AskQuestion(
        sentences::kWarning, "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟");
    if (answer == kAnswerNo) return std::nullopt;
  }
  showGoodSearch_();
  if (goodSearchCondition_.Empty()) return std::nullopt;
  Recordset goods = data_.rssqlINVGood.Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as "
                                                    "GoodCode,tblGood.Name as GoodName from tblGood Where ") +
                                            goodSearchCondition_);
  pgbStatus_.SetVisible(true);
  pgbStatus_.SetMax(static_cast<int>(goods.RecordCount()));
  pgbStatus_.SetValue(0);
  const int before = flexDetail_.Rows();
  bool allFit = true;
  {
    const Hourglass hourglass(screen_);
    allFit = AddFound(goods);
    pgbStatus_.SetVisible(false);
  }
  lines_.UpdateTotalQty();
  lines_.ColorRows();
  if (!allFit) {
    messages_.ShowMessage(sentences::kWarning, "شمارش بيش از " + std::to_string(kMaxLines) +
                                                   " سطر نمي پذيرد. كالاهايي كه جا داشتند اضافه شدند.");
  }
  return flexDetail_.Rows() - before;
}

bool AddGoods::AddFound(Recordset& goods) {
  const GridRedrawOff redrawOff(flexDetail_);
  const auto oneMoment = data_.BeginReadSnapshot();
  LineBarcodes barcodes(flexDetail_);
  for (; !goods.AtEnd(); goods.MoveNext()) {
    pgbStatus_.SetValue(pgbStatus_.Value() + 1);
    const std::string barcode = goods.Field("Barcode").Text();
    if (barcodes.GoodExistsInGrid(barcode)) continue;
    if (flexDetail_.Rows() > kMaxLines) return false;
    AddLine(goods);
    barcodes.Add(barcode);
  }
  return true;
}

void AddGoods::AddLine(const Recordset& good) {
  const std::string barcode = good.Field("Barcode").Text();
  const std::string trimmed(Trim(barcode));
  flexDetail_.AddItem(std::to_string(flexDetail_.Rows() - 1));
  const int row = flexDetail_.Rows() - 1;
  flexDetail_.SetTextMatrix(row, LineColumn::RowNumber, std::to_string(row));
  flexDetail_.SetTextMatrix(row, LineColumn::Barcode, barcode);
  flexDetail_.SetTextMatrix(row, LineColumn::GoodCode, good.Field("GoodCode").Text());
  flexDetail_.SetTextMatrix(row, LineColumn::GoodName, good.Field("GoodName").Text());
  try {
    quantity_.FillUnit(row, trimmed);
    quantity_.FillRate(row, trimmed);
    quantity_.FillSystemCounting(row, trimmed);
  } catch (...) {
    flexDetail_.RemoveItem(row);  // else the good would count as added, and never get what it lacks
    throw;
  }
  const std::string bookStock(flexDetail_.TextMatrix(row, LineColumn::SystemCounting));
  if (Val(bookStock) <= 0) return;
  flexDetail_.SetTextMatrix(row, LineColumn::Shortage, bookStock);
  flexDetail_.SetTextMatrix(row, LineColumn::ShortageAmount,
                            NumberText(Val(flexDetail_.TextMatrix(row, LineColumn::Rate)) * Val(bookStock)));
}

}  // namespace koru
