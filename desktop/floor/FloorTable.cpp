#include "desktop/floor/FloorTable.h"

#include <QHeaderView>

#include "desktop/toolkit/WholeTextTip.h"

// The widgets and items are owned by the table.
// NOLINTBEGIN(cppcoreguidelines-owning-memory)
namespace koru {

FloorTable::FloorTable(const QStringList& titles, int stretched, QWidget* parent)
    : QTableWidget(0, static_cast<int>(titles.size()), parent) {
  setHorizontalHeaderLabels(titles);
  setItemDelegate(new WholeTextTip(this));
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
  horizontalHeader()->setSectionResizeMode(stretched, QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
}

void FloorTable::ShowRows(const std::vector<QStringList>& rows) {
  const bool isOther = rowCount() != static_cast<int>(rows.size());
  setRowCount(static_cast<int>(rows.size()));
  for (int row = 0; row < rowCount(); ++row) {
    const QStringList& texts = rows[static_cast<std::size_t>(row)];
    for (int col = 0; col < columnCount(); ++col) {
      if (item(row, col) == nullptr) setItem(row, col, new QTableWidgetItem);
      if (item(row, col)->text() != texts[col]) item(row, col)->setText(texts[col]);
    }
  }
  if (isOther) resizeColumnsToContents();
}

QString FloorTable::Chosen(int col) const {
  const QModelIndexList rows = selectionModel()->selectedRows(col);
  return rows.isEmpty() ? QString() : rows.front().data().toString();
}

void FloorTable::Choose(int col, const QString& text) {
  if (Chosen(col) == text) return;
  for (int row = 0; row < rowCount(); ++row) {
    if (item(row, col)->text() == text) return setCurrentCell(row, col);
  }
  clearSelection();
}

}  // namespace koru
// NOLINTEND(cppcoreguidelines-owning-memory)
