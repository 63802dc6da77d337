#include "lines/SystemQuantity.h"

#include <string>

#include "lines/LineColumns.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "services/CancelOffer.h"

namespace koru {

SystemQuantity::SystemQuantity(InvCountingControls& controls, SharedState& shared, CountingLines& lines,
                               LineEditing& editing)
    : controls_(controls),
      flexDetail_(controls.flexDetail),
      shared_(shared),
      lines_(lines),
      editing_(editing) {}

void SystemQuantity::ShowProgress() {
  controls_.pgbStatus.SetVisible(true);
  controls_.pgbStatus.SetMax(flexDetail_.Rows() - 1);
  controls_.pgbStatus.SetValue(0);
}

bool SystemQuantity::CalculateAllLines() {
  ShowProgress();
  {
    const Hourglass hourglass(shared_.services.screen);
    std::vector<BookFigures> figures;
    const auto fillLines = [&] {
      const GridRedrawOff redrawOff(flexDetail_);
      for (std::size_t i = 0; i < figures.size(); ++i) FillLine(static_cast<int>(i) + 1, figures[i]);
    };
    bool finished = false;
    try {
      finished = ReadFigures(figures);
    } catch (...) {
      fillLines();
      throw;
    }
    if (finished) fillLines();
    controls_.pgbStatus.SetVisible(false);
    if (!finished) return false;
  }
  lines_.UpdateTotalQty();
  return true;
}

std::optional<std::vector<BookFigures>> SystemQuantity::ReadAllLines() {
  ShowProgress();
  const Hourglass hourglass(shared_.services.screen);
  std::vector<BookFigures> figures;
  const bool finished = ReadFigures(figures);
  controls_.pgbStatus.SetVisible(false);
  if (!finished) return std::nullopt;
  return figures;
}

bool SystemQuantity::ReadFigures(std::vector<BookFigures>& figures) {
  std::vector<std::string> barcodes;
  for (int row = 1; row < flexDetail_.Rows(); ++row) {
    barcodes.emplace_back(Trim(flexDetail_.TextMatrix(row, LineColumn::Barcode)));
  }
  figures.reserve(barcodes.size());
  const CancelOffer cancel(controls_.cmdStop);
  const auto oneMoment = barcodes.empty() ? nullptr : shared_.data.BeginReadSnapshot();
  const auto goOn = [&](std::size_t first) {
    controls_.pgbStatus.SetValue(static_cast<int>(first) + 1);
    return !cancel.Wanted();
  };
  BookFiguresReader reader(shared_.data, controls_, controls_.gmpInventory.SelectedID());
  return reader.Read(barcodes, goOn, figures);
}

void SystemQuantity::FillLine(int row, const BookFigures& figures) {
  if (figures.unit) {
    flexDetail_.SetTextMatrix(row, LineColumn::UnitName, figures.unit->name);
    flexDetail_.SetTextMatrix(row, LineColumn::ScaleID, figures.unit->id);
  }
  if (figures.rate) flexDetail_.SetTextMatrix(row, LineColumn::Rate, *figures.rate);
  if (!figures.bookStock) return;
  flexDetail_.SetTextMatrix(row, LineColumn::SystemCounting, NumberText(*figures.bookStock));
  editing_.CalculateRow(row);
}

double SystemQuantity::GetQTy(std::int32_t invID, std::string_view barcode) {
  return BookFiguresReader(shared_.data, controls_, invID).BookStock(std::string(Trim(barcode)));
}

}  // namespace koru
