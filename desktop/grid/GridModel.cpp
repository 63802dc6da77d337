#include "desktop/grid/GridModel.h"

#include <QFont>
#include <algorithm>
#include <cmath>

#include "desktop/toolkit/Colors.h"
#include "desktop/toolkit/Keys.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/ShownNumber.h"
#include "platform/text/Numbers.h"

namespace koru {
namespace {

constexpr QColor kSignColor(0xA3, 0x1F, 0x18);

}  // namespace

void GridModel::SetGrid(Grid* grid) {
  beginResetModel();
  grid_ = grid;
  rowsChanging_.End();
  rowsChanged_.End();
  rows_ = grid_ == nullptr ? 0 : grid_->Rows() - 1;
  cols_ = grid_ == nullptr ? 0 : grid_->Cols();
  isFiltered_ = false;
  shown_.clear();
  if (grid_ != nullptr) {
    rowsChanging_ = grid_->RowsChanging.Subscribe([this](const GridChange& change) { BeginChange(change); });
    rowsChanged_ = grid_->RowsChanged.Subscribe([this](const GridChange& change) { EndChange(change); });
  }
  endResetModel();
}

void GridModel::SetColumnStyle(int col, const ColumnStyle& style) {
  const auto at = static_cast<std::size_t>(col);
  if (styles_.size() <= at) styles_.resize(at + 1);
  styles_[at] = style;
  if (style.color.isValid()) styles_[at].color = OnDesktop(style.color);
}

void GridModel::SetConcealed(int col, bool concealed) {
  const auto at = static_cast<std::size_t>(col);
  if (styles_.size() <= at) styles_.resize(at + 1);
  styles_[at].concealed = concealed;
  if (rows_ > 0 && col < cols_) emit dataChanged(index(0, col), index(rows_ - 1, col));
}

ColumnStyle GridModel::StyleOf(int col) const {
  const auto at = static_cast<std::size_t>(col);
  return col >= 0 && at < styles_.size() ? styles_[at] : ColumnStyle();
}

QString GridModel::TextToStore(int col, const QString& text) const {
  return StyleOf(col).number ? NumberTyped(text) : text;
}

bool GridModel::IsMarked(const QModelIndex& index) const {
  const ColumnStyle style = StyleOf(index.column());
  return grid_ != nullptr && !style.concealed && std::isfinite(style.maxUnmarked) &&
         Val(grid_->TextMatrix(GridRowOf(index), index.column())) > style.maxUnmarked;
}

void GridModel::ShowOnly(std::vector<int> gridRows) { ResetShown(true, std::move(gridRows)); }

void GridModel::ShowAll() {
  if (isFiltered_) ResetShown(false, {});
}

void GridModel::ResetShown(bool isFiltered, std::vector<int> gridRows) {
  isBeingFiltered_ = true;
  beginResetModel();
  isFiltered_ = isFiltered;
  shown_ = std::move(gridRows);
  endResetModel();
  isBeingFiltered_ = false;
}

void GridModel::Reveal(int gridRow) {
  if (!isFiltered_ || gridRow < 1 || gridRow > rows_ || CellIndex(gridRow, 0).isValid()) return;
  const int at = ShownBefore(gridRow);
  beginInsertRows({}, at, at);
  shown_.insert(shown_.begin() + at, gridRow);
  endInsertRows();
}

/// The number of rows that are shown above that row of the grid.
int GridModel::ShownBefore(int gridRow) const {
  if (!isFiltered_) return gridRow - 1;
  return static_cast<int>(std::lower_bound(shown_.begin(), shown_.end(), gridRow) - shown_.begin());
}

int GridModel::GridRowAt(int row) const {
  return isFiltered_ ? shown_[static_cast<std::size_t>(row)] : row + 1;
}

int GridModel::GridRowOf(const QModelIndex& cell) const {
  return cell.isValid() && cell.row() < rowCount() ? GridRowAt(cell.row()) : 0;
}

QModelIndex GridModel::CellIndex(int gridRow, int col) const {
  const int row = ShownBefore(gridRow);
  if (row < 0 || row >= rowCount() || GridRowAt(row) != gridRow) return {};
  return index(row, col);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid()) return 0;
  return isFiltered_ ? static_cast<int>(shown_.size()) : rows_;
}

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : cols_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (grid_ == nullptr || !index.isValid() || index.row() >= rowCount() || index.column() >= cols_) return {};
  return CellData(index, role);
}

QVariant GridModel::CellData(const QModelIndex& cell, int role) const {
  const int gridRow = GridRowOf(cell);
  const int col = cell.column();
  const ColumnStyle style = StyleOf(col);
  if (style.concealed) return {};
  switch (role) {
    case Qt::DisplayRole: {
      const QString text = ToQt(grid_->TextMatrix(gridRow, col));
      return style.grouped ? GroupedNumber(text) : text;
    }
    case Qt::EditRole:
      return ToQt(grid_->TextMatrix(gridRow, col));
    case Qt::ToolTipRole:
      return IsMarked(cell) ? QVariant(style.markText) : QVariant();
    case Qt::BackgroundRole:
      return col == 0 ? QVariant() : QVariant(OnDesktop(ColorOf(grid_->RowBackColor(gridRow))));
    case Qt::ForegroundRole:
      return style.color.isValid() ? QVariant(style.color) : QVariant();
    case Qt::TextAlignmentRole:
      if (col == 0) return Qt::AlignCenter;
      if (style.number) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
      return QVariant(Qt::AlignLeading | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (grid_ == nullptr || section < 0) return {};
  if (orientation == Qt::Horizontal) return section < cols_ ? HeaderData(section, role) : QVariant();
  if (section >= rowCount() || cols_ == 0) return {};
  return RowNumberData(GridRowAt(section), role);
}

QVariant GridModel::RowNumberData(int gridRow, int role) const {
  const auto number = [&] { return ToQt(grid_->TextMatrix(gridRow, 0)); };
  const auto hasSign = [&] { return rowSign_.has && rowSign_.has(*grid_, gridRow); };
  switch (role) {
    case Qt::DisplayRole:
      return hasSign() ? QVariant(rowSign_.sign + QLatin1Char(' ') + number()) : QVariant(number());
    case Qt::ToolTipRole:
      return hasSign() ? QVariant(rowSign_.meaning) : QVariant();
    case Qt::AccessibleTextRole:
      return hasSign() ? QVariant(number() + QStringLiteral(": ") + rowSign_.meaning) : QVariant(number());
    case Qt::ForegroundRole:
      return hasSign() ? QVariant(OnDesktop(kSignColor)) : QVariant();
    case Qt::TextAlignmentRole:
      return Qt::AlignCenter;
    default:
      return {};
  }
}

QVariant GridModel::HeaderData(int col, int role) const {
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:  // a user can make a column narrower than its title
      return ToQt(grid_->TextMatrix(0, col)).trimmed();
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap);
    case Qt::ForegroundRole:
      return grid_->IsEditable(col) ? QVariant(OnDesktop(QColor(0x1F, 0x4E, 0x85))) : QVariant();
    case Qt::FontRole: {
      QFont font;
      font.setBold(grid_->IsEditable(col));
      return font;
    }
    default:
      return {};
  }
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  if (grid_ == nullptr || !index.isValid()) return flags;
  flags.setFlag(Qt::ItemIsEditable, grid_->Enabled() && !grid_->Locked() &&
                                        grid_->IsEditable(index.column()) &&
                                        !StyleOf(index.column()).concealed);
  return flags;
}

void GridModel::BeginChange(const GridChange& change) {
  changing_ = true;
  switch (change.kind) {
    case GridChange::Kind::Columns:
      beginResetModel();
      break;
    case GridChange::Kind::RowsInserted:
      beginInsertRows({}, rowCount(), rowCount() + change.last - change.first);
      break;
    case GridChange::Kind::RowsRemoved:
      BeginRemoval(change.first, change.last);
      break;
    case GridChange::Kind::RowTexts:
    case GridChange::Kind::AllTexts:
      break;
  }
}

void GridModel::EndChange(const GridChange& change) {
  changing_ = false;
  const int count = change.last - change.first + 1;
  switch (change.kind) {
    case GridChange::Kind::Columns:
      cols_ = grid_->Cols();
      endResetModel();
      break;
    case GridChange::Kind::RowsInserted:
      rows_ += count;
      for (int row = change.first; isFiltered_ && row <= change.last; ++row) shown_.push_back(row);
      endInsertRows();
      break;
    case GridChange::Kind::RowsRemoved:
      EndRemoval(change.first, change.last);
      break;
    case GridChange::Kind::RowTexts:
      if (change.first == 0) {
        TextsChanged(-1, -1);
      } else if (const QModelIndex shown = CellIndex(change.first, 0); shown.isValid()) {
        TextsChanged(shown.row(), shown.row());
      }
      break;
    case GridChange::Kind::AllTexts:
      TextsChanged(-1, rowCount() - 1);
      break;
  }
}

void GridModel::BeginRemoval(int first, int last) {
  const int firstShown = ShownBefore(first);
  const int lastShown = ShownBefore(last + 1) - 1;
  removesShown_ = firstShown <= lastShown;
  if (removesShown_) beginRemoveRows({}, firstShown, lastShown);
}

void GridModel::EndRemoval(int first, int last) {
  const int count = last - first + 1;
  rows_ -= count;
  if (isFiltered_) {
    const auto begin = std::lower_bound(shown_.begin(), shown_.end(), first);
    const auto end = std::upper_bound(begin, shown_.end(), last);
    for (auto later = shown_.erase(begin, end); later != shown_.end(); ++later) *later -= count;
  }
  if (removesShown_) endRemoveRows();
}

/// Notifies views of changed texts in these rows; row -1 is the header. Row numbers are not reported as
/// header data: that makes a view lay out and repaint everything for one entered count. RowNumbers repaints
/// them.
void GridModel::TextsChanged(int first, int last) {
  if (cols_ == 0) return;
  if (first < 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
  if (last < 0) return;
  emit dataChanged(index(std::max(first, 0), 0), index(last, cols_ - 1));
}

}  // namespace koru
