#include "desktop/grid/RowNumbers.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPainter>
#include <algorithm>

#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/GridView.h"

namespace koru {
namespace {

constexpr int kPadding = 12;

}  // namespace

RowNumbers::RowNumbers(GridView& view)
    : view_(view), corner_(view.findChild<QAbstractButton*>({}, Qt::FindDirectChildrenOnly)) {
  QHeaderView& rows = *view_.verticalHeader();
  rows.setHighlightSections(false);
  rows.setSectionsClickable(true);
  // Qt's own selection of rows moves the current cell to the first column.
  disconnect(&rows, &QHeaderView::sectionPressed, &view_, nullptr);
  disconnect(&rows, &QHeaderView::sectionEntered, &view_, nullptr);
  connect(&rows, &QHeaderView::sectionPressed, this, [this](int row) {
    if (!QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)) anchor_ = row;
    GoToRow(row);
  });
  connect(&rows, &QHeaderView::sectionEntered, this, &RowNumbers::GoToRow);
  connect(&rows, &QHeaderView::sectionDoubleClicked, this, [this](int row) {
    const GridModel& lines = view_.Rows();
    if (lines.Source() != nullptr) lines.Source()->UserDoubleClick(lines.GridRowOf(lines.index(row, 0)), 0);
  });
  rows.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&rows, &QWidget::customContextMenuRequested, this, [this](QPoint at) {
    const int row = view_.verticalHeader()->logicalIndexAt(at);
    if (!IsSelected(row)) GoToRow(anchor_ = row);
    view_.Menus().ShowForRow(view_.verticalHeader()->viewport()->mapToGlobal(at));
  });
  connect(&view_.Rows(), &QAbstractItemModel::dataChanged, this, &RowNumbers::Repaint);
  corner_->installEventFilter(this);
}

void RowNumbers::Repaint(const QModelIndex& first, const QModelIndex& last) {
  QHeaderView& rows = *view_.verticalHeader();
  const int top = rows.sectionViewportPosition(first.row());
  const int bottom = rows.sectionViewportPosition(last.row()) + rows.sectionSize(last.row());
  rows.viewport()->update(0, top, rows.viewport()->width(), bottom - top);
}

void RowNumbers::GoToRow(int row) {
  if (row < 0 || !view_.FinishEdit()) return;
  const int col = std::max(view_.currentIndex().column(), view_.FirstColumn());
  view_.setCurrentIndex(view_.Rows().index(row, col));
  if (HasCellsToFill(view_.Rows().Source())) SelectLines(anchor_, row);
}

void RowNumbers::SelectLines(int first, int last) {
  const GridModel& rows = view_.Rows();
  const QItemSelection lines(rows.index(std::min(first, last), view_.FirstColumn()),
                             rows.index(std::max(first, last), rows.columnCount() - 1));
  view_.selectionModel()->select(lines, QItemSelectionModel::ClearAndSelect);
}

bool RowNumbers::IsSelected(int row) const {
  const GridModel& rows = view_.Rows();
  return row >= 0 && view_.selectionModel()->isSelected(rows.index(row, view_.FirstColumn())) &&
         view_.selectionModel()->isSelected(rows.index(row, rows.columnCount() - 1));
}

void RowNumbers::Fit() {
  const GridModel& rows = view_.Rows();
  const QFontMetrics metrics(view_.font());
  const QString title = rows.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString();
  const QString last = rows.index(rows.rowCount() - 1, 0).data().toString();
  const int sign = metrics.horizontalAdvance(rows.SignOfRows().sign + QLatin1Char(' '));
  const int number = metrics.horizontalAdvance(last) + (rows.SignOfRows().has ? sign : 0);
  view_.SetFrameWidth(std::max(metrics.horizontalAdvance(title), number) + kPadding);
}

bool RowNumbers::eventFilter(QObject* object, QEvent* event) {
  switch (event->type()) {
    case QEvent::Paint: {
      QPainter painter(corner_);
      view_.Titles().PaintTitle(painter, corner_->rect(), 0);
      return true;
    }
    case QEvent::MouseButtonRelease:
      if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) view_.ClickTitle(0);
      return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      return true;
    case QEvent::ContextMenu:
      view_.Menus().ShowForTitle(0, static_cast<QContextMenuEvent*>(event)->globalPos());
      return true;
    default:
      return QObject::eventFilter(object, event);
  }
}

}  // namespace koru
