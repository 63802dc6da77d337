#include "desktop/grid/GridView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <memory>

#include "desktop/grid/CellDelegate.h"
#include "desktop/grid/CellHint.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/RowNumbers.h"
#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"

namespace koru {

GridView::GridView(QWidget* parent) : QTableView(parent) {
  setModel(&model_);
  setItemDelegate(new CellDelegate(*this));  // NOLINT(cppcoreguidelines-owning-memory)
  setEditTriggers(AnyKeyPressed | DoubleClicked | EditKeyPressed);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  SetUpHeaders();
  SetUpMouse();
  scanning_.SetUnknownScan([this](const QString& barcode) { emit unknownScan(barcode); });
  connect(this, &GridView::refused, this, [] { QApplication::beep(); });
  scanning_.SetHiddenRows([this](const QString& scanned) { return RevealScanned(scanned); });
  connect(&model_, &QAbstractItemModel::modelReset, &fitting_, [this] {
    if (!model_.IsBeingFiltered()) fitting_.FitLater();  // a filter leaves the widths alone
  });
  connect(&model_, &QAbstractItemModel::rowsInserted, &fitting_, &ColumnFitting::FitLater);
  connect(&model_, &QAbstractItemModel::dataChanged, &fitting_,
          [this](const QModelIndex& first, const QModelIndex& last) {
            if (first.row() < last.row()) {
              fitting_.FitLater();
            } else {
              fitting_.FitLaterUnlessFits(first.row());
            }
          });
}

void GridView::SetUpHeaders() {
  const QFontMetrics metrics(font());
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(metrics.height());
  verticalHeader()->setDefaultSectionSize(metrics.height() + 8);
  titles_ = new GridHeader(this);  // NOLINT(cppcoreguidelines-owning-memory)
  setHorizontalHeader(titles_);
  connect(titles_, &QHeaderView::sectionResized, &fitting_,
          [this](int col, int /*before*/, int width) { fitting_.ColumnResized(col, width); });
  connect(titles_, &QHeaderView::sectionMoved, &fitting_, &ColumnFitting::ColumnMoved);
  connect(titles_, &QHeaderView::sectionHandleDoubleClicked, this, &GridView::FitColumn);
  connect(titles_, &GridHeader::released, this, &GridView::Rearranged);
  connect(titles_, &QHeaderView::sectionClicked, this, &GridView::ClickTitle);
  titles_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(titles_, &QWidget::customContextMenuRequested, this, [this](QPoint at) {
    menus_.ShowForTitle(titles_->logicalIndexAt(at), titles_->viewport()->mapToGlobal(at));
  });
}

GridView::~GridView() = default;

void GridView::SetRowNumbers(bool rowNumbers) {
  if (rowNumbers == (rowNumbers_ != nullptr)) return;
  if (rowNumbers) {
    rowNumbers_ = std::make_unique<RowNumbers>(*this);
  } else {
    rowNumbers_.reset();
  }
  verticalHeader()->setVisible(rowNumbers);
  fitting_.FitLater();
}

void GridView::SetConcealed(int col, bool concealed) {
  if (model_.StyleOf(col).concealed == concealed) return;
  model_.SetConcealed(col, concealed);
  fitting_.ShowColumn(col, !concealed && !model_.StyleOf(col).hidden);
}

void GridView::SetFrameWidth(int width) {
  if (verticalHeader()->width() == width && verticalHeader()->minimumWidth() == width) return;
  verticalHeader()->setFixedWidth(width);
  updateGeometries();
}

void GridView::FitColumn(int col) {
  fitting_.FitColumn(col);
  Rearranged();
}

void GridView::Arrange(const ColumnArrangement& arrangement) {
  fitting_.Arrange(arrangement);
  reported_ = arrangement;
}

void GridView::ArrangeAsUsual() {
  fitting_.Arrange({});
  Rearranged();
}

/// The columns that the user has not resized take the room that the others leave.
void GridView::Rearranged() {
  if (reported_ == fitting_.Arranged()) return;
  reported_ = fitting_.Arranged();
  fitting_.FitLater();
  emit columnsArranged();
}

void GridView::ClickTitle(int col) {
  if (grid_ != nullptr && FinishEdit()) grid_->UserClickHeader(col);
  ReportOrder();
}

void GridView::SortByUser(const SortRequest& request) {
  if (grid_ != nullptr && FinishEdit()) grid_->UserSort(request);
  ReportOrder();
}

void GridView::SetUpMouse() {
  connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
    if (grid_ != nullptr) grid_->UserClick(model_.GridRowOf(index), index.column());
  });
  connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
    if (grid_ != nullptr) grid_->UserDoubleClick(model_.GridRowOf(index), index.column());
  });
}

void GridView::SetGrid(Grid* grid) {
  grid_ = grid;
  stateChanged_.End();
  rowsChanged_.End();
  currentChanged_.End();
  model_.SetGrid(grid);
  if (grid_ == nullptr) return;
  stateChanged_ = grid_->StateChanged.Subscribe([this] { FollowGrid(); });
  rowsChanged_ = grid_->RowsChanged.Subscribe([this](const GridChange& change) { FollowRows(change); });
  currentChanged_ = grid_->CurrentChanged.Subscribe([this] {
    if (!deletes_) model_.Reveal(grid_->Row());  // the program, or a command, has moved to a hidden row
    ShowCurrent();
  });
  FollowGrid();
}

void GridView::FollowGrid() {
  editing_.CloseIfReadOnly();
  const bool hasCellsToFill = HasCellsToFill(grid_);
  setSelectionBehavior(hasCellsToFill ? SelectItems : SelectRows);
  setSelectionMode(hasCellsToFill ? ContiguousSelection : SingleSelection);
  QPalette colors = viewport()->palette();
  const QColor ground = OnDesktop(ColorOf(grid_->BackColor()));
  if (colors.color(QPalette::Base) != ground) {
    colors.setColor(QPalette::Base, ground);
    viewport()->setPalette(colors);
  }
  ShowSortedColumn();
  ShowCurrent();
  fitting_.FitLater();
  viewport()->update();
}

void GridView::FollowRows(const GridChange& change) {
  if (change.kind == GridChange::Kind::RowTexts) return;
  scanning_.CellMoved();  // the row may hold another good now
  FollowGrid();
}

void GridView::ShowCurrent() {
  const QModelIndex wanted = model_.CellIndex(grid_->Row(), ShownCol());
  if (wanted == currentIndex()) return;
  if (wanted.isValid()) {
    setCurrentIndex(wanted);
  } else {
    selectionModel()->clear();
  }
}

void GridView::ShowOnly(std::vector<int> gridRows) {
  model_.ShowOnly(std::move(gridRows));
  AfterFilter();
}

void GridView::ShowAll() {
  if (!model_.IsFiltered()) return;
  model_.ShowAll();
  AfterFilter();
}

void GridView::AfterFilter() {
  scanning_.CellMoved();
  ShowCurrent();
  if (!currentIndex().isValid() && hasFocus()) GoToFirstCell();
  if (currentIndex().isValid()) scrollTo(currentIndex());
}

void GridView::GoToFirstCell() {
  if (model_.rowCount() == 0) return;
  const QModelIndex first = NextCellToFill(*this, model_.index(0, 0), true);
  setCurrentIndex(first.isValid() ? first : model_.index(0, 0));
}

void GridView::SetRowSign(RowSign sign) {
  model_.SetRowSign(std::move(sign));
  verticalHeader()->viewport()->update();
}

/// Shows the row that the filter hides and that has this text as its whole text in the scan column; an
/// invalid index if there is none.
QModelIndex GridView::RevealScanned(const QString& scanned) {
  if (!model_.IsFiltered()) return {};
  const std::string wanted = FoldedText(scanned);
  const int col = scanning_.ScanColumn();
  for (int row = 1; row < grid_->Rows(); ++row) {
    if (FoldedText(ToQt(grid_->TextMatrix(row, col))) != wanted) continue;
    model_.Reveal(row);
    return model_.CellIndex(row, col);
  }
  return {};
}

int GridView::ShownCol() const { return std::max(grid_->Col(), FirstColumn()); }

void GridView::ShowSortedColumn() {
  const bool descending = grid_ != nullptr && grid_->IsSortedDescending();
  titles_->setSortIndicator(grid_ == nullptr ? -1 : grid_->SortedCol(),
                            descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void GridView::ReportOrder() {
  ShowSortedColumn();
  if (!HasCellsToFill(grid_)) return;
  scrollTo(currentIndex());
  emit reported(QStringLiteral("ترتيب سطرها تغيير كرد؛ ثبت، ترتيبي را كه ديده مي شود نگه مي دارد."));
}

/// A move that no key or mouse event makes selects its cell alone, also while Shift is held for Shift+Tab.
QItemSelectionModel::SelectionFlags GridView::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  if (event == nullptr && selectionMode() == ContiguousSelection) return QItemSelectionModel::ClearAndSelect;
  return QTableView::selectionCommand(index, event);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.row() != previous.row()) {  // the current row is tinted
    UpdateRow(previous.row());
    UpdateRow(current.row());
    if (current.isValid()) fitting_.FitLaterUnlessFits(current.row());
  }
  if (grid_ == nullptr || !current.isValid()) return;
  // Qt moves away from a row that is being removed; the grid decides which cell is current then.
  if (model_.IsChanging()) return;
  scanning_.CellMoved();
  const int row = model_.GridRowOf(current);
  if (grid_->Row() == row && ShownCol() == current.column()) return;
  grid_->UserMoveTo(row, current.column());
}

void GridView::UpdateRow(int row) {
  if (row >= 0) viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  fitting_.ViewResized();
}

bool GridView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
  const bool begins = state() != EditingState;
  const bool begun = QTableView::edit(index, trigger, event);
  if (begun && begins && state() == EditingState) editing_.Begin(index, trigger);
  return begun;
}

void GridView::mousePressEvent(QMouseEvent* event) {
  // The editor has lost the focus before this; if it is still open, its text was refused and the user stays
  // in the cell.
  if (state() == EditingState) return;
  scanning_.Leave();
  pace_.Forget();
  QTableView::mousePressEvent(event);
  if (!currentIndex().isValid()) GoToFirstCell();
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (IsModifierKey(*event)) return QTableView::keyPressEvent(event);
  if (TypesCharacter(*event) && !pace_.IsContinuedBy(*event) && TakeScan()) {
    // The key is the first of the figure: the scanner sends no Enter.
    const std::unique_ptr<QKeyEvent> again(event->clone());
    QApplication::sendEvent(this, again.get());
    return;
  }
  const bool takesNumber = TakesNumber(currentIndex());
  const bool isLetter = takesNumber && TypesCharacter(*event) && !IsNumberKey(*event);
  const bool isRefused = TypesCharacter(*event) && IsLockedForTyping();
  const bool isFirst = !pace_.IsContinuedBy(*event);
  // A digit opens an editor, which gets the key as well and adds it.
  if (TypesCharacter(*event) && (isLetter || !takesNumber)) pace_.Add(*event, {});
  const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!TypesCharacter(*event) && !enter) pace_.Forget();
  if (LeavesGrid(*event)) {
    FocusOutside(key == Qt::Key_Tab);
  } else if (isLetter) {
    RefuseLetter();
  } else if (isRefused) {
    ShowCellHint(*this, currentIndex(), lockedHint_());
    if (isFirst) emit refused();  // once for a barcode
  } else if (enter) {
    EnterPressed();
  } else if (key == Qt::Key_Delete) {
    DeletePressed(event->modifiers().testFlag(Qt::ControlModifier));
  } else if (event->matches(QKeySequence::Copy)) {
    clipboard_.Copy();
  } else if (event->matches(QKeySequence::Paste)) {
    clipboard_.Paste();
  } else if (!MovesCell(*event) || FinishEdit()) {  // an editor passes on the keys that it does not use
    scanning_.MoveBy(*event, [this, event] { QTableView::keyPressEvent(event); });
  }
}

void GridView::MoveByKey(int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  scanning_.MoveBy(press, [this, &press] { QTableView::keyPressEvent(&press); });
}

bool GridView::TakesNumber(const QModelIndex& cell) const {
  return cell.flags().testFlag(Qt::ItemIsEditable) && model_.StyleOf(cell.column()).number;
}

void GridView::RefuseLetter() {
  ShowCellHint(*this, currentIndex(), QStringLiteral("اين خانه فقط عدد مي گيرد."));
  emit refused();
}

/// Whether the current cell would take a typed text if the grid were not locked.
bool GridView::IsLockedForTyping() const {
  return lockedHint_ && grid_ != nullptr && grid_->Locked() && currentIndex().isValid() &&
         grid_->IsEditable(currentIndex().column());
}

/// Scans the barcode that was sent into the grid. Returns false if there is none.
bool GridView::TakeScan() {
  const bool scanned = scanning_.HasScanColumn() && pace_.IsBarcode();
  const QString text = pace_.Text();
  pace_.Forget();
  if (scanned) scanning_.Scanned(text);
  return scanned;
}

void GridView::EnterPressed() {
  if (TakeScan() || scanning_.EnterPressed()) return;
  const QModelIndex current = currentIndex();
  if (HasCellsToFill(grid_)) {
    GoByEnter(*this, enterMoves_);
  } else if (grid_ != nullptr && current.isValid()) {
    grid_->UserDoubleClick(model_.GridRowOf(current), current.column());
  }
}

void GridView::DeletePressed(bool wholeRow) {
  const QModelIndex current = currentIndex();
  if (!HasCellsToFill(grid_) || !current.isValid()) return;
  if (wholeRow || !current.flags().testFlag(Qt::ItemIsEditable)) {
    DeleteRow();
  } else if (!current.data(Qt::EditRole).toString().isEmpty()) {
    grid_->UserEdit(model_.GridRowOf(current), current.column(), {});
  }
}

void GridView::DeleteRow() {
  const int place = currentIndex().row();
  const int col = currentIndex().column();
  {
    const QScopedValueRollback<bool> deleting(deletes_, true);
    grid_->UserDeleteRow();
  }
  const int last = model_.rowCount() - 1;
  if (place < 0 || last < 0 || model_.CellIndex(grid_->Row(), col).isValid()) return;
  setCurrentIndex(model_.index(std::min(place, last), col));
}

void GridView::focusInEvent(QFocusEvent* event) {
  // A click decides the cell itself: a move, which scrolls, would bring another cell below the mouse.
  if (!currentIndex().isValid() && event->reason() != Qt::MouseFocusReason) GoToFirstCell();
  QTableView::focusInEvent(event);
}

void GridView::focusOutEvent(QFocusEvent* event) {
  const bool left = event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason;
  if (left && !editing_.IsStoring() && !isAncestorOf(QApplication::focusWidget())) scanning_.Leave();
  QTableView::focusOutEvent(event);
}

bool GridView::event(QEvent* event) {
  // Tab does not reach keyPressEvent.
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (key.key() == Qt::Key_Tab && key.modifiers() == Qt::NoModifier && TakeScan()) return true;
  }
  // Ctrl+Tab may also be the window's shortcut into the grid.
  if (event->type() == QEvent::ShortcutOverride && LeavesGrid(*static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QTableView::event(event);
}

bool GridView::focusNextPrevChild(bool next) {
  if (scanning_.TabPressed()) return true;
  if (currentIndex().isValid() && GoToCellToFill(*this, next)) return true;
  return QTableView::focusNextPrevChild(next);
}

void GridView::contextMenuEvent(QContextMenuEvent* event) { menus_.ShowForRow(event->globalPos()); }

}  // namespace koru
