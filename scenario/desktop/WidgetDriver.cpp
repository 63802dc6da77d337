#include "scenario/desktop/WidgetDriver.h"

#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTableView>
#include <QTreeView>

#include "desktop/grid/GridView.h"
#include "desktop/toolkit/QtText.h"
#include "platform/controls/Selector.h"
#include "scenario/desktop/InputEvents.h"

namespace koru {
namespace {

bool IsReadOnly(const QWidget& textBox) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&textBox)) return line->isReadOnly();
  const auto* const lines = qobject_cast<const QPlainTextEdit*>(&textBox);
  return lines == nullptr || lines->isReadOnly();
}

/// Gives the widget the focus with a click.
void ClickInto(QWidget& widget) {
  QWidget* const inner = widget.focusProxy() == nullptr ? &widget : widget.focusProxy();
  ClickOn(*inner);
  QCoreApplication::processEvents();
  WaitUntil([&] {
    const QWidget* const focus = QApplication::focusWidget();
    return focus != nullptr && (focus == inner || inner->isAncestorOf(focus));
  });
}

QModelIndex IndexOf(const QAbstractItemModel& model, std::int32_t id) {
  const QModelIndexList found = model.match(model.index(0, 0), Qt::UserRole, id, 1,
                                            Qt::MatchExactly | Qt::MatchRecursive | Qt::MatchWrap);
  return found.isEmpty() ? QModelIndex() : found.first();
}

/// The place of the cell in the grid's viewport after scrolling to it; empty when it does not exist or is
/// hidden.
QRect CellPlace(GridView& view, int row, int col) {
  const QModelIndex index = view.Rows().CellIndex(row, col);
  if (!index.isValid() || view.isColumnHidden(col)) return {};
  view.scrollTo(index);
  return view.visualRect(index).intersected(view.viewport()->rect());
}

}  // namespace

bool TypeInto(QWidget& textBox, const QString& text) {
  if (IsReadOnly(textBox)) return false;
  ClickInto(textBox);
  PressKey(Qt::Key_A, Qt::ControlModifier);
  if (text.isEmpty()) PressKey(Qt::Key_Delete);
  TypeText(text);
  return true;
}

bool PickIn(QWidget& selector, std::int32_t id) {
  ClickInto(selector);
  if (id == Selector::kNothing) {
    PressKey(Qt::Key_Delete);
    return true;
  }
  PressKey(Qt::Key_F4);
  QCoreApplication::processEvents();
  QWidget* const popup = QApplication::activePopupWidget();
  auto* const records = popup == nullptr ? nullptr : popup->findChild<QTreeView*>(QStringLiteral("records"));
  if (records == nullptr) return false;
  const QModelIndex record = IndexOf(*records->model(), id);
  if (!record.isValid()) {
    popup->close();
    return false;
  }
  records->scrollTo(record);
  ClickOn(*records->viewport(), records->visualRect(record).center());
  return true;
}

bool EnterDate(QWidget& dateBox, std::optional<Date> date) {
  ClickInto(dateBox);
  if (!date) {
    PressKey(Qt::Key_Delete);
    return true;
  }
  PressKey(Qt::Key_A, Qt::ControlModifier);
  TypeText(ToQt(SolarText(*date)).remove(u'/'));
  PressKey(Qt::Key_Return);
  return true;
}

bool ChooseIn(QWidget& list, int index) {
  auto* const combo = qobject_cast<QComboBox*>(&list);
  if (combo == nullptr || index >= combo->count()) return false;
  combo->setFocus();
  combo->showPopup();
  QAbstractItemView& entries = *combo->view();
  const QModelIndex entry = combo->model()->index(index, combo->modelColumn());
  entries.scrollTo(entry);
  ClickOn(*entries.viewport(), entries.visualRect(entry).center());
  return true;
}

bool TypeIntoCell(QWidget& grid, int row, int col, const QString& text) {
  const auto* const view = qobject_cast<GridView*>(&grid);
  if (view == nullptr || !view->Rows().CellIndex(row, col).flags().testFlag(Qt::ItemIsEditable)) return false;
  if (!ClickCell(grid, row, col)) return false;
  if (text.isEmpty()) {
    PressKey(Qt::Key_Delete);
    return true;
  }
  // The click moved the cursor in a refused text that is still open.
  if (auto* const refused = qobject_cast<QLineEdit*>(QApplication::focusWidget())) refused->selectAll();
  TypeText(text);
  PressKey(Qt::Key_Return);
  const QWidget* const focus = QApplication::focusWidget();
  if (focus != nullptr && focus != &grid && grid.isAncestorOf(focus)) PressKey(Qt::Key_Escape);
  return true;
}

bool ClickCell(QWidget& grid, int row, int col) {
  auto* const view = qobject_cast<GridView*>(&grid);
  const QRect place = view == nullptr ? QRect() : CellPlace(*view, row, col);
  if (place.isEmpty()) return false;
  ClickOn(*view->viewport(), place.center());
  return true;
}

bool DoubleClickCell(QWidget& grid, int row, int col) {
  auto* const view = qobject_cast<GridView*>(&grid);
  const QRect place = view == nullptr ? QRect() : CellPlace(*view, row, col);
  if (place.isEmpty()) return false;
  DoubleClickOn(*view->viewport(), place.center());
  return true;
}

bool ClickColumnHeader(QWidget& grid, int col) {
  auto* const view = qobject_cast<QTableView*>(&grid);
  if (view == nullptr || view->isColumnHidden(col)) return false;
  QHeaderView& header = *view->horizontalHeader();
  view->scrollTo(view->model()->index(0, col));
  const int middle = header.sectionViewportPosition(col) + header.sectionSize(col) / 2;
  ClickOn(*header.viewport(), QPoint(middle, header.height() / 2));
  return true;
}

int FirstVisibleColumn(const QWidget& grid) {
  const auto* const view = qobject_cast<const QTableView*>(&grid);
  int col = 0;
  while (view != nullptr && col + 1 < view->model()->columnCount() && view->isColumnHidden(col)) ++col;
  return col;
}

}  // namespace koru
