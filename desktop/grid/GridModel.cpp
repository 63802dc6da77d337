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
void GridModel::SetGrid(Grid* grid) {
  beginResetModel();
  grid_ = grid;
  rowsChanging_.End();
  rowsChanged_.End();
  rows_ = grid_ == nullptr ? 0 : grid_->Rows() - 1;
  cols_ = grid_ == nullptr ? 0 : grid_->Cols();
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
         Val(grid_->TextMatrix(index.row() + 1, index.column())) > style.maxUnmarked;
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : cols_; }

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (grid_ == nullptr || !index.isValid() || index.row() >= rows_ || index.column() >= cols_) return {};
  return CellData(index.row() + 1, index.column(), role);
}

QVariant GridModel::CellData(int gridRow, int col, int role) const {
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
      return IsMarked(index(gridRow - 1, col)) ? QVariant(style.markText) : QVariant();
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
  if (section >= rows_ || cols_ == 0) return {};
  if (role == Qt::DisplayRole) return ToQt(grid_->TextMatrix(section + 1, 0));
  return role == Qt::TextAlignmentRole ? QVariant(Qt::AlignCenter) : QVariant();
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
      beginInsertRows({}, change.first - 1, change.last - 1);
      break;
    case GridChange::Kind::RowsRemoved:
      beginRemoveRows({}, change.first - 1, change.last - 1);
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
      endInsertRows();
      break;
    case GridChange::Kind::RowsRemoved:
      rows_ -= count;
      endRemoveRows();
      break;
    case GridChange::Kind::RowTexts:
      TextsChanged(change.first - 1, change.first - 1);
      break;
    case GridChange::Kind::AllTexts:
      TextsChanged(-1, rows_ - 1);
      break;
  }
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
