#include "desktop/grid/GridMenus.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>

#include "desktop/grid/GridCells.h"
#include "desktop/grid/GridView.h"

namespace koru {

void GridMenus::ShowForTitle(int col, QPoint at) {
  if (view_.Rows().Source() == nullptr || col < 0) return;
  QMenu menu(&view_);
  menu.setObjectName(QStringLiteral("titleMenu"));
  if (HasCellsToFill(view_.Rows().Source())) {
    AddSorting(menu, col);
    menu.addSeparator();
  }
  AddFitting(menu, col);
  menu.exec(at);
}

void GridMenus::ShowForRow(QPoint at) {
  Grid* const grid = view_.Rows().Source();
  if (grid == nullptr || !view_.currentIndex().isValid()) return;
  QMenu menu(&view_);
  menu.setObjectName(QStringLiteral("rowMenu"));
  const QAction* const copy = menu.addAction(QStringLiteral("رونوشت\tCtrl+C"));
  const QAction* paste = nullptr;
  const QAction* remove = nullptr;
  if (HasCellsToFill(grid)) {
    const bool isOpen = grid->Enabled() && !grid->Locked();
    QAction* const pasting = menu.addAction(QStringLiteral("چسباندن\tCtrl+V"));
    pasting->setEnabled(isOpen && !QApplication::clipboard()->text().isEmpty());
    menu.addSeparator();
    QAction* const removing = menu.addAction(QStringLiteral("حذف سطر\tCtrl+Del"));
    removing->setEnabled(isOpen);
    menu.addSeparator();
    AddSorting(menu, view_.currentIndex().column());
    paste = pasting;
    remove = removing;
  }
  const QAction* const chosen = menu.exec(at);
  if (chosen == nullptr || view_.Rows().Source() != grid) return;
  if (chosen == copy) view_.Clipboard().Copy();
  if (chosen == paste) view_.Clipboard().Paste();
  if (chosen == remove) view_.DeleteRow();
}

void GridMenus::AddSorting(QMenu& menu, int col) {
  const auto add = [&](const char* text, RowOrder order) {
    QObject::connect(menu.addAction(QString::fromUtf8(text)), &QAction::triggered, &view_,
                     [this, col, order] {
                       view_.SortByUser({col, order});
                     });
  };
  add("مرتب سازي از كم به زياد", RowOrder::Ascending);
  add("مرتب سازي از زياد به كم", RowOrder::Descending);
  add("برگشت به ترتيب ورود", RowOrder::Entry);
}

void GridMenus::AddFitting(QMenu& menu, int col) {
  const ColumnArrangement& arranged = view_.Fitting().Arranged();
  QAction* const fit = menu.addAction(QStringLiteral("پهناي خودكار اين ستون"));
  fit->setEnabled(arranged.widths.contains(col));
  QObject::connect(fit, &QAction::triggered, &view_, [this, col] { view_.FitColumn(col); });
  QAction* const usual = menu.addAction(QStringLiteral("پهنا و ترتيب نخستين ستونها"));
  usual->setEnabled(arranged != ColumnArrangement());
  QObject::connect(usual, &QAction::triggered, &view_, &GridView::ArrangeAsUsual);
}

}  // namespace koru
