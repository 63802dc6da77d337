#include "desktop/grid/RowNumbers.h"

#include <QAbstractButton>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QPainter>
#include <algorithm>

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
  connect(&rows, &QHeaderView::sectionPressed, this, &RowNumbers::GoToRow);
  connect(&rows, &QHeaderView::sectionDoubleClicked, this, [this](int row) {
    if (view_.Rows().Source() != nullptr) view_.Rows().Source()->UserDoubleClick(row + 1, 0);
  });
  rows.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&rows, &QWidget::customContextMenuRequested, this, [this](QPoint at) {
    GoToRow(view_.verticalHeader()->logicalIndexAt(at));
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
}

void RowNumbers::Fit() {
  const GridModel& rows = view_.Rows();
  const QFontMetrics metrics(view_.font());
  const QString title = rows.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString();
  const QString last = rows.index(rows.rowCount() - 1, 0).data().toString();
  view_.SetFrameWidth(std::max(metrics.horizontalAdvance(title), metrics.horizontalAdvance(last)) + kPadding);
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
