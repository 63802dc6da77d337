#include "lines/frmMovedStock.h"

#include <string>
#include <string_view>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

constexpr int kSpace = 32;
constexpr const char* kMark = "✓";
constexpr int kQuantityDecimals = 6;

constexpr const char* kTitlesOfLines =
    "رديف|^انتخاب|^کد ميله\u200cاي            |^كد              |^نام                                   "
    "|^موجودي سطر       |^موجودي تازه       |^تغيير            ";
constexpr const char* kTitlesOfDocuments =
    "رديف|^نوع سند           |^شماره            |^تاريخ            |^اثر بر موجودي    ";

std::string Quantity(double quantity) { return NumberText(Round(quantity, kQuantityDecimals)); }

std::string SentenceOn(const MovedLine& line, const MoveExplanation& explanation) {
  if (line.shownStock.empty()) return "اين سطر هنوز محاسبه نشده بود. آخرين سندهاي كالا:";
  if (explanation.isWhole) return "آخرين سندهاي كالا كه جمع آنها برابر تغيير است:";
  if (explanation.documents.empty())
    return "اين كالا سندي در محدوده شمارش ندارد: سندي حذف شده يا تغيير كرده، يا انبار يا "
           "تاريخ‌هاي "
           "شمارش "
           "عوض شده است.";
  return "جمع آخرين سندها برابر تغيير نيست: سندي حذف شده يا تغيير كرده، يا انبار يا "
         "تاريخ‌هاي "
         "شمارش "
         "عوض "
         "شده است. "
         "آخرين سندهاي كالا:";
}

}  // namespace

frmMovedStock::frmMovedStock(SharedState& shared, const InvCountingControls& lines,
                             const std::vector<MovedLine>& moved, bool mayTake)
    : Form(shared.services.screen, "frmMovedStock"),
      shared_(shared),
      moved_(moved),
      mayTake_(mayTake),
      moves_(shared.data, lines, lines.gmpInventory.SelectedID()) {
  SetCaption("بررسي تغيير موجودي");
  OnFailure = [this](const std::exception& failure) { shared_.messages.ShowFailure(failure); };
  cmdTakeAll.SetCaption("گرفتن همه");
  cmdTakeMarked.SetCaption("گرفتن انتخاب‌شده‌ها");
  cmdClose.SetCaption("بستن");
  lblSummary.SetCaption("موجودي دفتري " + std::to_string(moved.size()) + " سطر از " +
                        std::to_string(lines.flexDetail.Rows() - 1) + " سطر تغيير كرده است.");
  SetUp(lines);
  cmdTakeAll.Click.Always([this] { Take(true); });
  cmdTakeMarked.Click.Always([this] { Take(false); });
  cmdClose.Click.Always([this] { Unload(); });
  flexMoved.Click.Always([this] {
    if (flexMoved.Col() == MovedColumn::Mark) ToggleMark();
  });
  flexMoved.KeyDown.Always([this](KeyPress press) {
    if (press.key == kSpace && press.shift == 0) ToggleMark();
  });
  FollowMarks();
  flexMoved.SetCurrent(1, MovedColumn::Mark);
  ShowDocuments();
  flexMoved.CurrentChanged.Always([this] { ShowDocuments(); });
}

void frmMovedStock::SetUp(const InvCountingControls& lines) {
  flexMoved.SetCols(MovedColumn::Difference + 1);
  flexMoved.SetFormatString(kTitlesOfLines);
  flexDocuments.SetCols(MoveColumn::Quantity + 1);
  flexDocuments.SetFormatString(kTitlesOfDocuments);
  const Grid& from = lines.flexDetail;
  const auto cell = [&from](int row, int col) { return std::string(from.TextMatrix(row, col)); };
  const GridRedrawOff redrawOff(flexMoved);
  for (const MovedLine& line : moved_) {
    flexMoved.AddRow(std::vector<std::string>{
        std::to_string(line.row), "", cell(line.row, LineColumn::Barcode),
        cell(line.row, LineColumn::GoodCode), cell(line.row, LineColumn::GoodName), line.shownStock,
        Quantity(line.figures.bookStock.value_or(0)), Quantity(line.Difference())});
  }
}

/// Read when they are looked at: a change of the store or of the dates moves every line.
void frmMovedStock::ShowDocuments() {
  const int row = flexMoved.Row();
  flexDocuments.SetRows(1);
  lblDocuments.SetCaption("");
  if (row < 1 || row >= flexMoved.Rows()) return;
  const MovedLine& line = moved_[static_cast<std::size_t>(row) - 1];
  const std::string barcode(Trim(flexMoved.TextMatrix(row, MovedColumn::Barcode)));
  const MoveExplanation explanation = ExplainMove(line.Difference(), moves_.Latest(barcode));
  lblDocuments.SetCaption(SentenceOn(line, explanation));
  ShowMoves(explanation);
}

void frmMovedStock::ShowMoves(const MoveExplanation& explanation) {
  for (const StockMove& move : explanation.documents) {
    flexDocuments.AddRow(
        std::vector<std::string>{std::to_string(flexDocuments.Rows()),
                                 move.kind == StockMove::Kind::Receipt ? "رسيد انبار" : "خروج از انبار",
                                 move.code, move.date, Quantity(move.quantity)});
  }
}

bool frmMovedStock::IsMarked(int row) const { return !flexMoved.TextMatrix(row, MovedColumn::Mark).empty(); }

void frmMovedStock::ToggleMark() {
  const int row = flexMoved.Row();
  if (!mayTake_ || row < 1 || row >= flexMoved.Rows()) return;
  flexMoved.SetTextMatrix(row, MovedColumn::Mark, IsMarked(row) ? "" : kMark);
  FollowMarks();
}

void frmMovedStock::FollowMarks() {
  bool isAnyMarked = false;
  for (int row = 1; row < flexMoved.Rows() && !isAnyMarked; ++row) isAnyMarked = IsMarked(row);
  cmdTakeAll.SetEnabled(mayTake_);
  cmdTakeMarked.SetEnabled(mayTake_ && isAnyMarked);
  const std::string edit =
      mayTake_
          ? ""
          : "اين شمارش فقط ديده مي‌شود: براي گرفتن موجودي تازه، "
            "«اصلاح» "
            "را "
            "بزنيد.";
  cmdTakeAll.SetRemark(edit);
  cmdTakeMarked.SetRemark(mayTake_ && !isAnyMarked ? "سطري انتخاب نشده است." : edit);
}

void frmMovedStock::Take(bool all) {
  taken_.clear();
  for (std::size_t i = 0; i < moved_.size(); ++i) {
    if (all || IsMarked(static_cast<int>(i) + 1)) taken_.push_back(moved_[i]);
  }
  Unload();
}

}  // namespace koru
