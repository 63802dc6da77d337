#include "desktop/grid/CellClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QPersistentModelIndex>
#include <algorithm>
#include <vector>

#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridSearch.h"
#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "platform/text/TypedNumber.h"

namespace koru {
namespace {

std::vector<QStringList> CopiedLines() {
  QString text = QApplication::clipboard()->text();
  text.remove(u'\r');
  if (text.isEmpty()) return {};  // an empty clipboard, or a picture
  if (text.endsWith(u'\n')) text.chop(1);
  std::vector<QStringList> lines;
  for (const QString& line : text.split(u'\n')) lines.push_back(line.split(u'\t'));
  return lines;
}

int TextsIn(const QStringList& texts) {
  return static_cast<int>(std::count_if(texts.begin(), texts.end(),
                                        [](const QString& text) { return !text.trimmed().isEmpty(); }));
}

/// RAII: the wait cursor while many cells are filled.
class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};

}  // namespace

void CellClipboard::Copy() const {
  const QModelIndex current = view_.currentIndex();
  if (current.isValid()) QApplication::clipboard()->setText(current.data(Qt::EditRole).toString());
}

bool CellClipboard::HoldsSeveralTexts() {
  const std::vector<QStringList> lines = CopiedLines();
  return lines.size() > 1 || (!lines.empty() && lines.front().size() > 1);
}

void CellClipboard::Paste(const QModelIndex& from) const {
  Grid* const grid = view_.Rows().Source();
  if (grid == nullptr || grid->Locked()) return;
  const QPersistentModelIndex first(from);
  PastedCounts counts;
  {
    const WaitCursor hourglass;
    const BatchEdit batch(*grid);
    QPersistentModelIndex line(from);  // leaving an empty row removes it
    for (const QStringList& texts : CopiedLines()) {
      if (!line.isValid()) {
        counts.unfit += TextsIn(texts);
        continue;
      }
      const QPersistentModelIndex below(view_.Rows().index(line.row() + 1, line.column()));
      PasteLine(line, texts, counts);
      line = below;
    }
    if (first.isValid()) grid->UserMoveTo(first.row() + 1, first.column());
  }
  Report(counts);
}

/// Copied rows have a text for every column of the grid, as the Excel button writes them: their figures go to
/// their own columns, wherever the current cell is. A text for a hidden column or one that is not typed into
/// is left out.
void CellClipboard::PasteLine(const QPersistentModelIndex& from, const QStringList& texts,
                              PastedCounts& counts) const {
  const GridModel& rows = view_.Rows();
  const int row = from.row();
  const int firstCol = texts.size() == rows.columnCount() ? 0 : from.column();
  if (IsOfAnotherLine(row, firstCol, texts)) {
    for (int i = 0; i < texts.size(); ++i) counts.unfit += IsFigure(row, firstCol + i, texts[i]) ? 1 : 0;
    return;
  }
  for (int i = 0; i < texts.size(); ++i) {
    const QModelIndex cell = rows.index(row, firstCol + i);
    if (!cell.isValid()) {
      counts.unfit += texts[i].trimmed().isEmpty() ? 0 : 1;
    } else if (cell.flags().testFlag(Qt::ItemIsEditable) && !view_.isColumnHidden(cell.column())) {
      const bool fits = PasteCell(cell, texts[i]);
      counts.unfit += fits ? 0 : 1;
      counts.stored += fits && !texts[i].trimmed().isEmpty() ? 1 : 0;
    }
  }
}

/// Whether the texts have a text for the scan column that is not the line's own.
bool CellClipboard::IsOfAnotherLine(int row, int firstCol, const QStringList& texts) const {
  const int scanCol = view_.Scanning().ScanColumn();
  if (scanCol < firstCol || scanCol >= firstCol + texts.size()) return false;
  const QString own = view_.Rows().index(row, scanCol).data().toString();
  return FoldedText(texts[scanCol - firstCol]) != FoldedText(own);
}

bool CellClipboard::IsFigure(int row, int col, const QString& text) const {
  const QModelIndex cell = view_.Rows().index(row, col);
  return cell.flags().testFlag(Qt::ItemIsEditable) && !text.trimmed().isEmpty();
}

/// Returns false if the text is no number, or the form refused it.
bool CellClipboard::PasteCell(const QModelIndex& cell, const QString& text) const {
  const GridModel& rows = view_.Rows();
  const QString stored = rows.TextToStore(cell.column(), text);
  if (stored == cell.data(Qt::EditRole).toString()) return true;
  if (view_.TakesNumber(cell) && !stored.isEmpty() && !IsTypedNumber(FromQt(stored))) return false;
  return rows.Source()->UserEdit(cell.row() + 1, cell.column(), FromQt(stored));
}

void CellClipboard::Report(const PastedCounts& counts) const {
  if (counts.unfit > 0) {
    const QString text = QStringLiteral("%1 عدد چسبانده شد؛ %2 مقدار جا نداشت، عدد نبود يا پذيرفته نشد.")
                             .arg(counts.stored)
                             .arg(counts.unfit);
    ShowCellHint(view_, view_.currentIndex(), text);
    emit view_.reported(text);
    emit view_.refused();
  } else if (counts.stored > 1) {
    emit view_.reported(QStringLiteral("%1 عدد چسبانده شد.").arg(counts.stored));
  }
}

}  // namespace koru
