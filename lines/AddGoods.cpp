#include "lines/AddGoods.h"

#include <string>
#include <unordered_set>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The barcodes of all lines: a good is looked up in constant time.
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

AddGoods::AddGoods(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                   SystemQuantity& quantity)
    : controls_(controls),
      flexDetail_(controls.flexDetail),
      shared_(shared),
      lines_(lines),
      quantity_(quantity) {}

bool AddGoods::MayAdd() {
  if (controls_.gmpInventory.NothingSelected()) {
    shared_.messages.ShowMessage(sentences::kError, "انبار انتخاب نشده است.");
    return false;
  }
  if (flexDetail_.Rows() < 2) return true;
  return shared_.messages.AskQuestion(sentences::kWarning,
                                      "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟") !=
         kAnswerNo;
}

std::optional<int> AddGoods::Run(const GoodSearch& search) {
  if (!MayAdd()) return std::nullopt;
  const SqlText& condition = search();
  if (condition.Empty()) return std::nullopt;
  Recordset goods =
      shared_.data.rssqlINVGood.Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as "
                                             "GoodCode,tblGood.Name as GoodName from tblGood Where ") +
                                     condition);
  controls_.pgbStatus.SetVisible(true);
  controls_.pgbStatus.SetMax(static_cast<int>(goods.RecordCount()));
  controls_.pgbStatus.SetValue(0);
  const int before = flexDetail_.Rows();
  bool allFit = true;
  {
    const Hourglass hourglass(shared_.services.screen);
    allFit = AddFound(goods);
    controls_.pgbStatus.SetVisible(false);
  }
  lines_.UpdateTotalQty();
  lines_.ColorRows();
  if (!allFit) {
    shared_.messages.ShowMessage(
        sentences::kWarning,
        "شمارش بيش از " + std::to_string(kMaxLines) + " سطر نمي پذيرد. كالاهايي كه جا داشتند اضافه شدند.");
  }
  return flexDetail_.Rows() - before;
}

bool AddGoods::AddFound(Recordset& goods) {
  const GridRedrawOff redrawOff(flexDetail_);
  const auto oneMoment = shared_.data.BeginReadSnapshot();
  LineBarcodes barcodes(flexDetail_);
  for (; !goods.AtEnd(); goods.MoveNext()) {
    controls_.pgbStatus.SetValue(controls_.pgbStatus.Value() + 1);
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
    flexDetail_.RemoveItem(row);  // adding again must not find it and leave it incomplete
    throw;
  }
  const std::string bookStock(flexDetail_.TextMatrix(row, LineColumn::SystemCounting));
  if (Val(bookStock) <= 0) return;
  flexDetail_.SetTextMatrix(row, LineColumn::Shortage, bookStock);
  flexDetail_.SetTextMatrix(row, LineColumn::ShortageAmount,
                            NumberText(Val(flexDetail_.TextMatrix(row, LineColumn::Rate)) * Val(bookStock)));
}

}  // namespace koru
