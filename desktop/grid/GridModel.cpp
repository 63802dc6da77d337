#include "desktop/grid/GridModel.h"

#include <QFont>

#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/ShownNumber.h"

namespace koru {
void GridModel::SetGrid(Grid* grid) {
  beginResetModel();
  grid_ = grid;
  rowsChanged_.End();
  rows_ = grid_ == nullptr ? 0 : grid_->Rows() - 1;
  cols_ = grid_ == nullptr ? 0 : grid_->Cols();
  if (grid_ != nullptr) {
    rowsChanged_ = grid_->RowsChanged.Subscribe([this](const GridChange& change) { Follow(change); });
  }
  endResetModel();
}

void GridModel::SetColumnStyle(int col, const ColumnStyle& look) {
  const auto at = static_cast<std::size_t>(col);
  if (looks_.size() <= at) looks_.resize(at + 1);
  looks_[at] = look;
}

ColumnStyle GridModel::LookOf(int col) const {
  const auto at = static_cast<std::size_t>(col);
  return col >= 0 && at < looks_.size() ? looks_[at] : ColumnStyle();
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : cols_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (grid_ == nullptr || !index.isValid() || index.row() >= rows_ || index.column() >= cols_) return {};
  const int gridRow = GridRowOf(index.row());
  if (gridRow < 1 || gridRow >= grid_->Rows() || index.column() >= grid_->Cols()) return {};
  return CellData(gridRow, index.column(), role);
}

QVariant GridModel::CellData(int gridRow, int col, int role) const {
  const ColumnStyle look = LookOf(col);
  switch (role) {
    case Qt::DisplayRole: {
      const QString text = ToQt(grid_->TextMatrix(gridRow, col));
      return look.grouped ? GroupedNumber(text) : text;
    }
    case Qt::EditRole:
      return ToQt(grid_->TextMatrix(gridRow, col));
    case Qt::BackgroundRole:
      return col == 0 ? QVariant() : QVariant(ColorOf(grid_->RowBackColor(gridRow)));
    case Qt::ForegroundRole:
      return look.color.isValid() ? QVariant(look.color) : QVariant();
    case Qt::TextAlignmentRole:
      if (col == 0) return Qt::AlignCenter;
      if (look.number) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
      return QVariant(Qt::AlignLeading | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  const bool known = grid_ != nullptr && section >= 0 && section < cols_ && section < grid_->Cols();
  return orientation == Qt::Horizontal && known ? HeaderData(section, role) : QVariant();
}

QVariant GridModel::HeaderData(int col, int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(grid_->TextMatrix(0, col)).trimmed();
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap);
    case Qt::ForegroundRole:
      return grid_->IsEditable(col) ? QVariant(QColor(0x1F, 0x4E, 0x85)) : QVariant();
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
  flags.setFlag(Qt::ItemIsEditable,
                grid_->Enabled() && !grid_->Locked() && grid_->IsEditable(index.column()));
  return flags;
}

int GridModel::GridRowOf(int row) const {
  int gridRow = row + 1;
  if (announced_.inserted > 0 && gridRow >= announced_.first) gridRow += announced_.inserted;
  if (announced_.removed > 0 && gridRow >= announced_.first) {
    gridRow = gridRow < announced_.first + announced_.removed ? 0 : gridRow - announced_.removed;
  }
  return gridRow;
}

void GridModel::Follow(const GridChange& change) {
  const int first = change.first - 1;
  const int last = change.last - 1;
  const int count = change.last - change.first + 1;
  switch (change.kind) {
    case GridChange::Kind::Everything:
      FollowEverything();
      break;
    case GridChange::Kind::RowsInserted:
      announced_ = {change.first, count, 0};
      beginInsertRows({}, first, last);
      announced_ = {};
      rows_ += count;
      endInsertRows();
      break;
    case GridChange::Kind::RowsRemoved:
      announced_ = {change.first, 0, count};
      beginRemoveRows({}, first, last);
      announced_ = {};
      rows_ -= count;
      endRemoveRows();
      break;
    case GridChange::Kind::RowTexts:
      if (change.first == 0) {
        if (cols_ > 0) emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
      } else if (cols_ > 0) {
        emit dataChanged(index(first, 0), index(last, cols_ - 1));
      }
      break;
  }
}

/// A sort or a calculation keeps the rows: then the view keeps its place, too.
void GridModel::FollowEverything() {
  if (grid_->Rows() - 1 == rows_ && grid_->Cols() == cols_) {
    if (cols_ == 0) return;
    emit headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, cols_ - 1));
    return;
  }
  beginResetModel();
  rows_ = grid_->Rows() - 1;
  cols_ = grid_->Cols();
  endResetModel();
}

}  // namespace koru
