#include "desktop/search/GoodsList.h"

#include <QHeaderView>
#include <algorithm>

#include "desktop/fields/Fields.h"
#include "desktop/toolkit/PlainText.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

constexpr int kNameColumn = 0;
constexpr int kCodeColumn = 1;
constexpr int kBarcodeColumn = 2;

QTableWidgetItem* NewCell(const std::string& text, int column) {
  auto* const cell = new QTableWidgetItem(ToQt(text));  // NOLINT(cppcoreguidelines-owning-memory)
  if (column != kNameColumn) cell->setTextAlignment(kTrueRight);
  cell->setToolTip(PlainToolTip(cell->text()));
  return cell;
}

}  // namespace

GoodsList::GoodsList(QWidget* parent) : QTableWidget(0, 3, parent) {
  setHorizontalHeaderLabels({QStringLiteral("نام كالا"), QStringLiteral("كد كالا"), QStringLiteral("باركد")});
  horizontalHeader()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
  setColumnWidth(kCodeColumn, 95);
  setColumnWidth(kBarcodeColumn, 125);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
}

void GoodsList::SetGoods(const std::vector<PickedGood>& goods, int current) {
  setRowCount(static_cast<int>(goods.size()));
  for (int row = 0; row < rowCount(); ++row) {
    const PickedGood& good = goods[static_cast<std::size_t>(row)];
    setItem(row, kNameColumn, NewCell(good.name, kNameColumn));
    setItem(row, kCodeColumn, NewCell(good.code, kCodeColumn));
    setItem(row, kBarcodeColumn, NewCell(good.barcode, kBarcodeColumn));
  }
  if (rowCount() > 0) setCurrentCell(std::clamp(current, 0, rowCount() - 1), kNameColumn);
}

}  // namespace koru
