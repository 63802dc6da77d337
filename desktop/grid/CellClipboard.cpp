#include "desktop/grid/CellClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QPersistentModelIndex>
#include <vector>

#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"

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
  if (view_.Rows().Source() == nullptr) return;
  const WaitCursor hourglass;
  const BatchEdit batch(*view_.Rows().Source());
  QPersistentModelIndex line(from);  // leaving an empty row removes it
  for (const QStringList& texts : CopiedLines()) {
    if (!line.isValid()) return;
    const QPersistentModelIndex below(view_.Rows().index(line.row() + 1, line.column()));
    if (!PasteLine(line, texts)) return;
    line = below;
  }
}

/// Returns false if the form refused one of the texts.
bool CellClipboard::PasteLine(const QPersistentModelIndex& from, const QStringList& texts) const {
  const GridModel& rows = view_.Rows();
  int col = from.column();
  for (const QString& text : texts) {
    while (view_.isColumnHidden(col)) ++col;
    const QModelIndex cell = rows.index(from.row(), col);
    if (!cell.isValid()) return true;
    const bool editable = cell.flags().testFlag(Qt::ItemIsEditable);
    if (editable && !rows.Source()->UserEdit(cell.row() + 1, col, FromQt(rows.TextToStore(col, text))))
      return false;
    ++col;
  }
  return true;
}

}  // namespace koru
