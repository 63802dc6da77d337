#include "desktop/grid/GridView.h"

#include <QApplication>
#include <QHeaderView>
#include <algorithm>
#include <memory>

#include "desktop/grid/CellDelegate.h"
#include "desktop/grid/GridHeader.h"
#include "desktop/grid/RowNumbers.h"
#include "desktop/toolkit/Colors.h"
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

}  // namespace koru
