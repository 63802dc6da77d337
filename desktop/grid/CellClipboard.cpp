#include "desktop/grid/CellClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QPersistentModelIndex>
#include <optional>
#include <vector>

#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridView.h"
#include "desktop/grid/TabbedText.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

std::vector<QStringList> CopiedRows() { return CellsOf(QApplication::clipboard()->text()); }

/// RAII: the wait cursor while many cells are filled.
class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

/// The selected rectangle: rows, and the places of columns in the order in which they are shown.
QRect CellClipboard::SelectedPlaces() const {
  const QHeaderView& titles = *view_.horizontalHeader();
  QRect places;
  for (const QItemSelectionRange& range : view_.selectionModel()->selection()) {
    for (int col = range.left(); col <= range.right(); ++col) {
      if (view_.isColumnHidden(col)) continue;
      places |= QRect(titles.visualIndex(col), range.top(), 1, range.height());
    }
  }
  return places;
}

void CellClipboard::Copy() const {
  const QModelIndex current = view_.currentIndex();
  if (!current.isValid()) return;
  const QRect places = SelectedPlaces();
  if (view_.selectionBehavior() == QAbstractItemView::SelectRows || places.width() * places.height() <= 1) {
    QApplication::clipboard()->setText(current.data(Qt::EditRole).toString());
    return;
  }
  std::vector<QStringList> rows;
  for (int row = places.top(); row <= places.bottom(); ++row) {
    rows.emplace_back();
    for (int place = places.left(); place <= places.right(); ++place) {
      const int col = view_.horizontalHeader()->logicalIndex(place);
      rows.back() += view_.Rows().index(row, col).data(Qt::EditRole).toString();
    }
  }
  QApplication::clipboard()->setText(TabbedText(rows));
}

bool CellClipboard::HoldsSeveralTexts() {
  const std::vector<QStringList> rows = CopiedRows();
  return rows.size() > 1 || (!rows.empty() && rows.front().size() > 1);
}

void CellClipboard::Paste() const {
  const QRect places = SelectedPlaces();
  const QModelIndex current = view_.currentIndex();
  const bool wholeLines = places.width() == view_.Rows().columnCount() - view_.FirstColumn();
  const int col = places.isEmpty() || wholeLines ? current.column()
                                                 : view_.horizontalHeader()->logicalIndex(places.left());
  Paste(places.isEmpty() ? current : view_.Rows().index(places.top(), col));
}

void CellClipboard::Paste(const QModelIndex& from) const {
  Grid* const grid = view_.Rows().Source();
  if (grid == nullptr || grid->Locked() || !from.isValid()) return;
  const QPersistentModelIndex first(from);
  PastedCounts counts;
  {
    const WaitCursor hourglass;
    const PastePlan plan = PlanPaste(view_, from, CopiedRows());
    const BatchEdit batch(*grid);
    std::optional<GridRedrawOff> redrawOff;
    if (plan.rows.size() > 1) redrawOff.emplace(*grid);  // a long column is laid out once
    for (const PastePlan::Row& row : plan.rows) PasteRow(plan, row, counts);
    if (first.isValid()) grid->UserMoveTo(view_.Rows().GridRowOf(first), first.column());
  }
  Report(counts);
}

/// A text for a hidden column or one that is not typed into is left out without being counted.
void CellClipboard::PasteRow(const PastePlan& plan, const PastePlan::Row& row, PastedCounts& counts) const {
  counts.cells += static_cast<int>(row.texts.size());
  if (row.match == PastePlan::Match::Unknown) {
    ++counts.unknown;
  } else if (row.match != PastePlan::Match::Line || !row.line.isValid()) {  // leaving an empty row removes it
    counts.unfit += FiguresIn(plan, row);
  } else {
    for (int i = 0; i < row.texts.size(); ++i) {
      const QString& text = row.texts[i];
      const int col = plan.columns[static_cast<std::size_t>(i)];
      const QModelIndex cell = row.line.sibling(row.line.row(), col);
      if (col == PastePlan::kBeyondEnd) {
        counts.unfit += text.trimmed().isEmpty() ? 0 : 1;
      } else if (cell.flags().testFlag(Qt::ItemIsEditable) && !view_.isColumnHidden(col)) {
        const bool fits = PasteCell(cell, text);
        counts.unfit += fits ? 0 : 1;
        counts.stored += fits && !text.trimmed().isEmpty() ? 1 : 0;
      }
    }
  }
}

/// How many texts of a row are for cells that can be edited.
int CellClipboard::FiguresIn(const PastePlan& plan, const PastePlan::Row& row) const {
  const Grid& grid = *view_.Rows().Source();
  int figures = 0;
  for (int i = 0; i < row.texts.size(); ++i) {
    const int col = plan.columns[static_cast<std::size_t>(i)];
    const bool isEdited = col == PastePlan::kBeyondEnd || (col >= 0 && grid.IsEditable(col));
    figures += isEdited && !row.texts[i].trimmed().isEmpty() ? 1 : 0;
  }
  return figures;
}

/// Returns false if the text is no number, or the form refused it.
bool CellClipboard::PasteCell(const QModelIndex& cell, const QString& text) const {
  const GridModel& rows = view_.Rows();
  const QString stored = rows.TextToStore(cell.column(), text);
  if (stored == cell.data(Qt::EditRole).toString()) return true;
  if (view_.TakesNumber(cell) && !stored.isEmpty() && !IsTypedNumber(FromQt(stored))) return false;
  return rows.Source()->UserEdit(rows.GridRowOf(cell), cell.column(), FromQt(stored));
}

/// A single text that is stored needs no report.
void CellClipboard::Report(const PastedCounts& counts) const {
  const bool isComplete = counts.unfit == 0 && counts.unknown == 0;
  if (isComplete && counts.stored <= 1 && counts.cells <= 1) return;
  QString text = QStringLiteral("%1 عدد چسبانده شد").arg(counts.stored);
  if (counts.unfit > 0)
    text += QStringLiteral("؛ %1 مقدار جا نداشت، عدد نبود يا پذيرفته نشد").arg(counts.unfit);
  if (counts.unknown > 0) {
    const QString place = view_.Rows().IsFiltered()
                              ? QStringLiteral("ميان سطرهاي ديده‌شده")
                              : QStringLiteral("در اين شمارش");
    text += QStringLiteral("؛ باركد %1 سطر %2 نيست").arg(counts.unknown).arg(place);
  }
  text += u'.';
  if (!isComplete) ShowCellHint(view_, view_.currentIndex(), text);
  emit view_.reported(text);
  if (!isComplete) emit view_.refused();
}

}  // namespace koru
