#include "lines/AddGoods.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "services/CancelOffer.h"

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

AddGoods::AddGoods(InvCountingControls& controls, SharedState& shared, CountingLines& lines)
    : controls_(controls), flexDetail_(controls.flexDetail), shared_(shared), lines_(lines) {}

bool AddGoods::HasStore() const {
  if (!controls_.gmpInventory.NothingSelected()) return true;
  shared_.messages.ShowMessage(sentences::kError, "انبار انتخاب نشده است.");
  return false;
}

bool AddGoods::MayAdd() {
  if (!HasStore()) return false;
  if (flexDetail_.Rows() < 2) return true;
  return shared_.messages.AskQuestion(sentences::kWarning,
                                      "كالاهاي جديد به كالاهاي فعلي اضافه مي شوند. آيا ادامه مي دهيد؟") !=
         kAnswerNo;
}

std::optional<int> AddGoods::Run(const GoodSearch& search) {
  if (!MayAdd()) return std::nullopt;
  const SqlText& condition = search();
  if (condition.Empty()) return std::nullopt;
  return Add(condition);
}

std::optional<int> AddGoods::Add(const SqlText& condition) {
  if (!HasStore()) return std::nullopt;
  const Recordset found =
      shared_.data.rssqlINVGood.Open(SqlText("Select tblGood.barcode,isnull(tblGood.Code,'') as "
                                             "GoodCode,tblGood.Name as GoodName from tblGood Where ") +
                                     condition);
  controls_.pgbStatus.SetVisible(true);
  controls_.pgbStatus.SetMax(static_cast<int>(found.RecordCount()));
  controls_.pgbStatus.SetValue(0);
  const NewGoods goods = FindNew(found);
  {
    const Hourglass hourglass(shared_.services.screen);
    std::vector<BookFigures> figures;
    bool finished = false;
    try {
      finished = ReadFigures(goods, figures);
    } catch (...) {
      AddLines(found, goods, figures);
      throw;
    }
    if (finished) AddLines(found, goods, figures);
    controls_.pgbStatus.SetVisible(false);
    if (!finished) return std::nullopt;
  }
  lines_.UpdateTotalQty();
  lines_.ColorRows();
  if (!goods.allFit) {
    shared_.messages.ShowMessage(
        sentences::kWarning,
        "شمارش بيش از " + std::to_string(kMaxLines) + " سطر نمي پذيرد. كالاهايي كه جا داشتند اضافه شدند.");
  }
  return static_cast<int>(goods.records.size());
}

AddGoods::NewGoods AddGoods::FindNew(const Recordset& found) const {
  NewGoods goods;
  const std::size_t room = static_cast<std::size_t>(std::max(kMaxLines + 1 - flexDetail_.Rows(), 0));
  LineBarcodes lines(flexDetail_);
  const std::size_t column = found.RecordCount() == 0 ? 0 : found.ColumnIndex("Barcode");
  for (std::size_t record = 0; record < found.RecordCount(); ++record) {
    const std::string barcode = found.FieldOf(record, column).Text();
    if (lines.GoodExistsInGrid(barcode)) continue;
    goods.allFit = goods.records.size() < room;
    if (!goods.allFit) break;
    goods.records.push_back(record);
    goods.barcodes.emplace_back(Trim(barcode));
    lines.Add(barcode);
  }
  return goods;
}

bool AddGoods::ReadFigures(const NewGoods& goods, std::vector<BookFigures>& figures) {
  figures.reserve(goods.barcodes.size());
  const CancelOffer cancel(controls_.cmdStop);
  const auto oneMoment = goods.barcodes.empty() ? nullptr : shared_.data.BeginReadSnapshot();
  const auto goOn = [&](std::size_t first) {
    controls_.pgbStatus.SetValue(static_cast<int>(goods.records[first]) + 1);
    return !cancel.Wanted();
  };
  BookFiguresReader reader(shared_.data, controls_, controls_.gmpInventory.SelectedID());
  return reader.Read(goods.barcodes, goOn, figures);
}

/// A good of which not everything was read gets no line: adding again must find it missing.
void AddGoods::AddLines(const Recordset& found, const NewGoods& goods,
                        const std::vector<BookFigures>& figures) {
  const GridRedrawOff redrawOff(flexDetail_);
  for (std::size_t i = 0; i < figures.size() && figures[i].bookStock; ++i) {
    const auto field = [&](const char* name) {
      return found.FieldOf(goods.records[i], found.ColumnIndex(name)).Text();
    };
    const BookFigures& figure = figures[i];
    std::array<std::string, kLineColumns> texts;
    texts[LineColumn::RowNumber] = std::to_string(flexDetail_.Rows());
    texts[LineColumn::Barcode] = field("Barcode");
    texts[LineColumn::GoodCode] = field("GoodCode");
    texts[LineColumn::GoodName] = field("GoodName");
    if (figure.unit) {
      texts[LineColumn::UnitName] = figure.unit->name;
      texts[LineColumn::ScaleID] = figure.unit->id;
    }
    if (figure.rate) texts[LineColumn::Rate] = *figure.rate;
    const std::string bookStock = NumberText(*figure.bookStock);
    texts[LineColumn::SystemCounting] = bookStock;
    if (*figure.bookStock > 0) {
      texts[LineColumn::Shortage] = bookStock;
      texts[LineColumn::ShortageAmount] = NumberText(Val(texts[LineColumn::Rate]) * Val(bookStock));
    }
    flexDetail_.AddRow(texts);
  }
}

}  // namespace koru
