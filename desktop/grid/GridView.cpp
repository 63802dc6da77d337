#include "desktop/grid/GridView.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>

#include "desktop/grid/CellDelegate.h"
#include "desktop/grid/GridColumns.h"
#include "desktop/toolkit/QtText.h"

namespace koru {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kCellPadding = 12;
constexpr int kSampleRows = 50;
constexpr int kWidestNeed = 190;   ///< a longer text is cut off before it pushes other columns out of sight
constexpr int kStretchNeed = 140;  ///< the column that takes the room that is left also gives it first

}  // namespace

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
  connect(&model_, &QAbstractItemModel::modelReset, this, &GridView::FitColumnsLater);
  connect(&model_, &QAbstractItemModel::rowsInserted, this, &GridView::FitColumnsLater);
  connect(&model_, &QAbstractItemModel::dataChanged, this,
          [this](const QModelIndex& first, const QModelIndex& last) {
            if (first.row() < last.row() || !FitsColumns(first.row())) FitColumnsLater();
          });
}

void GridView::SetUpHeaders() {
  const QFontMetrics metrics(font());
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(metrics.height());
  verticalHeader()->setDefaultSectionSize(metrics.height() + 8);
  QHeaderView& header = *horizontalHeader();
  header.setFixedHeight(2 * metrics.height() + 8);
  header.setMinimumSectionSize(20);
  header.setHighlightSections(false);
  header.setSectionsClickable(true);
  header.setSortIndicatorShown(true);
  header.setSortIndicator(-1, Qt::AscendingOrder);
  connect(&header, &QHeaderView::sectionResized, this, [this] {
    if (!fitting_) ownWidths_ = true;
  });
  connect(&header, &QHeaderView::sectionClicked, this, [this](int col) {
    if (grid_ != nullptr && FinishEdit()) grid_->UserClickHeader(col);
    ShowSortedColumn();
  });
}

void GridView::SetUpMouse() {
  connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex& index) {
    if (grid_ != nullptr) grid_->UserClick(index.row() + 1, index.column());
  });
  connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex& index) {
    if (grid_ != nullptr) grid_->UserDoubleClick(index.row() + 1, index.column());
  });
}

void GridView::SetGrid(Grid* grid) {
  grid_ = grid;
  gridChanged_.End();
  rowsChanged_.End();
  model_.SetGrid(grid);
  if (grid_ == nullptr) return;
  gridChanged_ = grid_->Changed.Subscribe([this] { FollowGrid(); });
  rowsChanged_ = grid_->RowsChanged.Subscribe([this](const GridChange& change) {
    if (change.kind == GridChange::Kind::RowTexts) return;
    if (!scanMoves_) LeaveScanning();  // another good may stand in the line now
    FollowGrid();
  });
  FollowGrid();
}

void GridView::FollowGrid() {
  if (IsTypedInto() && !storing_ && !edited_.flags().testFlag(Qt::ItemIsEditable)) Close(*Editor());
  setSelectionBehavior(HasCellsToFill() ? SelectItems : SelectRows);
  QPalette colors = viewport()->palette();
  const QColor ground = ColorOf(grid_->BackColor());
  if (colors.color(QPalette::Base) != ground) {
    colors.setColor(QPalette::Base, ground);
    viewport()->setPalette(colors);
  }
  ShowSortedColumn();
  ShowCurrent();
  FitColumnsLater();
  viewport()->update();
}

void GridView::ShowCurrent() {
  const QModelIndex wanted = model_.index(grid_->Row() - 1, grid_->Col());
  if (wanted == currentIndex()) return;
  if (wanted.isValid()) {
    setCurrentIndex(wanted);
  } else {
    selectionModel()->clear();
  }
}

void GridView::ShowSortedColumn() {
  horizontalHeader()->setSortIndicator(grid_ == nullptr ? -1 : grid_->SortedCol(), Qt::AscendingOrder);
}

void GridView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.row() != previous.row()) viewport()->update();
  if (grid_ == nullptr || !current.isValid()) return;
  // The toolkit steps aside from a row that goes; where the person stands then is for the grid to say.
  if (model_.Announces()) return;
  if (!scanMoves_) LeaveScanning();
  const int row = current.row() + 1;
  if (grid_->Row() == row && grid_->Col() == current.column()) return;
  grid_->UserMoveTo(row, current.column());
}

void GridView::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FitColumnsLater();
}

void GridView::FitColumnsLater() {
  if (fitWanted_ || ownWidths_) return;
  fitWanted_ = true;
  QTimer::singleShot(0, this, &GridView::FitColumnsNow);
}

void GridView::FitColumnsNow() {
  fitWanted_ = false;
  if (grid_ == nullptr || ownWidths_) return;
  std::vector<ColumnSizeHint> wishes;
  for (int col = 0; col < model_.columnCount(); ++col) wishes.push_back(WishOf(col));
  const std::vector<int> widths = FitColumns(wishes, viewport()->width(), stretch_);
  const QScopedValueRollback<bool> fitting(fitting_, true);
  for (int col = 0; col < model_.columnCount(); ++col) {
    const int width = widths[static_cast<std::size_t>(col)];
    setColumnHidden(col, width == 0);
    if (width > 0 && columnWidth(col) != width) setColumnWidth(col, width);
  }
}

/// Whether the columns are wide enough for a row, so that a single figure does not have all of them measured.
bool GridView::FitsColumns(int row) const {
  for (int col = 0; col < model_.columnCount(); ++col) {
    if (!isColumnHidden(col) && NeedOf(row, col) + kCellPadding > columnWidth(col)) return false;
  }
  return true;
}

/// The width of a text, as far as a column grows for it.
int GridView::NeedOf(int row, int col) const {
  const QString text = model_.index(row, col).data().toString();
  if (text.isEmpty()) return 0;
  const int sign = model_.LookOf(col).sign == ColumnStyle::Sign::None ? 0 : kCellPadding;
  return std::min(QFontMetrics(font()).horizontalAdvance(text) + sign,
                  col == stretch_ ? kStretchNeed : kWidestNeed);
}

ColumnSizeHint GridView::WishOf(int col) const {
  const int natural = grid_->ColWidth(col) / kTwipsPerPixel;
  if (natural == 0 || model_.LookOf(col).hidden) return {};
  QFont headerFont = font();
  headerFont.setBold(grid_->IsEditable(col));
  const QString title = model_.headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
  int need = TwoLineWidth(title, QFontMetrics(headerFont));
  const int shown = std::min(model_.rowCount(), kSampleRows);
  const int from = std::max(0, rowAt(0));
  for (int row = from; row < std::min(from + shown, model_.rowCount()); ++row) {
    need = std::max(need, NeedOf(row, col));
  }
  return {need + kCellPadding, std::max(natural, need + kCellPadding)};
}

}  // namespace koru
