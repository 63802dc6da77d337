#include "platform/controls/Grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/controls/GridSort.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// A character of a title is as wide as this in the grid's font.
constexpr int kTwipsPerCharacter = 90;

}  // namespace

void Grid::SetRows(int rows) {
  if (rows < 1) throw std::out_of_range("a grid keeps its header row");
  const int before = Rows();
  if (rows == before) return;
  rows_.resize(std::min(rows_.size(), static_cast<std::size_t>(rows)));
  while (Rows() < rows) rows_.emplace_back(static_cast<std::size_t>(cols_));
  colors_.resize(rows_.size(), kWhite);
  row_ = std::min(row_, rows - 1);
  if (rows > before) {
    RowsCameOrWent({GridChange::Kind::RowsInserted, before, rows - 1});
  } else {
    RowsCameOrWent({GridChange::Kind::RowsRemoved, rows, before - 1});
  }
}

void Grid::SetCols(int cols) {
  if (cols < 0) throw std::out_of_range("a grid has no fewer than 0 columns");
  cols_ = cols;
  col_ = 0;
  columns_.assign(static_cast<std::size_t>(cols), Column{});
  for (GridRow& row : rows_) row = GridRow(static_cast<std::size_t>(cols));
  colors_.assign(rows_.size(), kWhite);
  RowsCameOrWent({});
}

void Grid::SetFormatString(std::string_view format) {
  for (std::size_t col = 0; col < columns_.size() && !format.empty(); ++col) {
    std::string_view title = format.substr(0, format.find('|'));
    format.remove_prefix(std::min(format.size(), title.size() + 1));
    columns_[col].centred = title.starts_with('^');
    if (columns_[col].centred) title.remove_prefix(1);
    columns_[col].width = static_cast<int>(Utf16Length(title)) * kTwipsPerCharacter;
    rows_.front().SetText(col, title);
  }
  Report({});
}

bool Grid::IsEditable(int col) const {
  const auto at = static_cast<std::size_t>(col);
  return col >= 0 && at < editMask_.size() && editMask_[at] == '1';
}

void Grid::SetLocked(bool locked) {
  if (locked_ == locked) return;
  locked_ = locked;
  Changed.Raise();
}

void Grid::SetColWidth(int col, int twips) {
  columns_.at(static_cast<std::size_t>(col)).width = twips;
  Changed.Raise();
}

std::string_view Grid::TextMatrix(int row, int col) const {
  return At(row).Text(static_cast<std::size_t>(col));
}

void Grid::SetTextMatrix(int row, int col, std::string_view text) {
  At(row).SetText(static_cast<std::size_t>(col), text);
  Report({GridChange::Kind::RowTexts, row, row});
}

void Grid::AddItem(std::string_view text) {
  GridRow row(static_cast<std::size_t>(cols_));
  row.SetText(0, text);
  Append(std::move(row));
}

void Grid::AddRow(std::span<const std::string> texts) {
  if (texts.size() != columns_.size()) throw std::out_of_range("a row has a text for every column");
  Append(GridRow(texts));
}

void Grid::Append(GridRow row) {
  rows_.push_back(std::move(row));
  colors_.push_back(backColor_);
  RowsCameOrWent({GridChange::Kind::RowsInserted, Rows() - 1, Rows() - 1});
}

void Grid::RemoveItem(int row) {
  if (row < 1) throw std::out_of_range("the header row of a grid cannot be removed");
  static_cast<void>(At(row));
  rows_.erase(rows_.begin() + row);
  colors_.erase(colors_.begin() + row);
  if (row_ >= row) row_ = std::min(row_, Rows() - 1);
  RowsCameOrWent({GridChange::Kind::RowsRemoved, row, row});
}

void Grid::SetCurrent(int row, int col) {
  static_cast<void>(At(row).Text(static_cast<std::size_t>(col)));
  if (row_ == row && col_ == col) return;
  row_ = row;
  col_ = col;
  Changed.Raise();
}

void Grid::Sort(int col, SortMode mode) {
  SortRows(rows_, static_cast<std::size_t>(col), mode);
  sortedCol_ = col;
  Report({});
}

void Grid::SetBackColor(std::uint32_t color) {
  backColor_ = color;
  Changed.Raise();
}

void Grid::SetRowBackColor(int row, std::uint32_t color) {
  std::uint32_t& old = colors_.at(static_cast<std::size_t>(row));
  if (old == color) return;
  old = color;
  Report({GridChange::Kind::RowTexts, row, row});
}

void Grid::SetRedraw(bool redraw) {
  if (redraw_ == redraw) return;
  redraw_ = redraw;
  Report({});
}

bool Grid::UserEdit(int row, int col, std::string text) {
  if (!Reachable() || locked_ || !IsDataCell(row, col) || !IsEditable(col)) return false;
  if (!UserMoveTo(row, col)) return false;
  bool stored = false;
  RunEvent([&] {
    editText_ = std::move(text);
    editAccepted_ = true;
    ValidateEdit.Raise();
    if (!editAccepted_) return;
    SetTextMatrix(row_, col_, editText_);
    stored = true;
    CellChanged.Raise();
  });
  return stored;
}

void Grid::EndBatchEdit() {
  inBatchEdit_ = false;
  RunEvent([this] { BatchEdited.Raise(); });
}

bool Grid::UserDeleteRow() {
  if (!Reachable() || row_ < 1) return false;
  bool gone = false;
  RunEvent([&] {
    deleteAllowed_ = true;
    RowDeleting.Raise();
    if (!deleteAllowed_) return;
    RemoveItem(row_);
    gone = true;
    RowDeleted.Raise();
  });
  return gone;
}

bool Grid::UserMoveTo(int row, int col) {
  if (!Reachable() || !IsDataCell(row, col)) return false;
  bool arrived = false;
  RunEvent([&] {
    Parent().SetFocus(*this);
    const int before = Rows();
    const int left = row_;
    if (row != left) RowChange.Raise();
    const bool leftIsGone = Rows() < before;
    const int target = leftIsGone && left < row ? row - 1 : row;
    if (target >= Rows()) return;
    SetCurrent(target, col);
    arrived = true;
  });
  return arrived;
}

void Grid::UserLeave() {
  RunEvent([this] { LeaveGrid.Raise(); });
}

bool Grid::UserClickHeader(int col) {
  if (!Reachable() || col < 0 || col >= cols_) return false;
  RunEvent([&] {
    Parent().SetFocus(*this);
    HeaderClick.Raise(col);
  });
  return true;
}

bool Grid::UserClick(int row, int col) {
  if (!UserMoveTo(row, col)) return false;
  RunEvent([this] { Click.Raise(); });
  return true;
}

bool Grid::UserDoubleClick(int row, int col) {
  if (!UserMoveTo(row, col)) return false;
  RunEvent([this] { DblClick.Raise(); });
  return true;
}

bool Grid::IsDataCell(int row, int col) const { return row >= 1 && row < Rows() && col >= 0 && col < cols_; }

void Grid::Report(GridChange change) {
  if (redraw_) RowsChanged.Raise(change);
}

void Grid::RowsCameOrWent(GridChange change) {
  sortedCol_ = -1;
  Report(change);
}

}  // namespace koru
