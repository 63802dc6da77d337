#include "platform/controls/Grid.h"

#include <algorithm>
#include <exception>
#include <iterator>
#include <numeric>
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
  if (rows < Rows()) {
    Remove(rows, Rows() - 1);
  } else if (rows > Rows()) {
    std::vector<GridRow> added(static_cast<std::size_t>(rows - Rows()));
    for (GridRow& row : added) row = GridRow(static_cast<std::size_t>(cols_));
    Append(added, kWhite);
  }
}

void Grid::SetCols(int cols) {
  if (cols < 0) throw std::out_of_range("a grid has no fewer than 0 columns");
  std::vector<Column> columns(static_cast<std::size_t>(cols));
  std::vector<GridRow> rows(rows_.size());
  for (GridRow& row : rows) row = GridRow(columns.size());
  ChangeRows({GridChange::Kind::Columns}, [&]() noexcept {
    cols_ = cols;
    col_ = 0;
    columns_ = std::move(columns);
    rows_ = std::move(rows);
    std::fill(colors_.begin(), colors_.end(), kWhite);
    reportedRows_ = Rows();
  });
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
  ReportTexts({GridChange::Kind::AllTexts});
}

bool Grid::IsEditable(int col) const {
  const auto at = static_cast<std::size_t>(col);
  return col >= 0 && at < editMask_.size() && editMask_[at] == '1';
}

void Grid::SetLocked(bool locked) {
  if (locked_ == locked) return;
  locked_ = locked;
  StateChanged.Raise();
}

void Grid::SetColWidth(int col, int twips) {
  int& width = columns_.at(static_cast<std::size_t>(col)).width;
  if (width == twips) return;
  width = twips;
  StateChanged.Raise();
}

std::string_view Grid::TextMatrix(int row, int col) const {
  return At(row).Text(static_cast<std::size_t>(col));
}

void Grid::SetTextMatrix(int row, int col, std::string_view text) {
  At(row).SetText(static_cast<std::size_t>(col), text);
  ReportTexts({GridChange::Kind::RowTexts, row, row});
}

void Grid::AddItem(std::string_view text) {
  GridRow row(static_cast<std::size_t>(cols_));
  row.SetText(0, text);
  Append({&row, 1}, backColor_);
}

void Grid::AddRow(std::span<const std::string> texts) {
  if (texts.size() != columns_.size()) throw std::out_of_range("a row has a text for every column");
  GridRow row(texts);
  Append({&row, 1}, backColor_);
}

void Grid::Append(std::span<GridRow> rows, std::uint32_t color) {
  const std::size_t needed = rows_.size() + rows.size();
  if (rows_.capacity() < needed) rows_.reserve(std::max(needed, 2 * rows_.capacity()));
  if (colors_.capacity() < needed) colors_.reserve(rows_.capacity());
  if (entries_.capacity() < needed) entries_.reserve(rows_.capacity());
  if (ids_.capacity() < needed) ids_.reserve(rows_.capacity());
  const int first = Rows();
  const auto append = [&]() noexcept {
    rows_.insert(rows_.end(), std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    colors_.resize(rows_.size(), color);
    while (entries_.size() < rows_.size()) {
      entries_.push_back(++lastEntry_);
      ids_.push_back(lastEntry_);
    }
    sortedCol_ = -1;
  };
  if (redraw_) {
    ChangeRows({GridChange::Kind::RowsInserted, first, static_cast<int>(needed) - 1}, append);
  } else {
    append();
  }
}

void Grid::RemoveItem(int row) {
  if (row < 1) throw std::out_of_range("the header row of a grid cannot be removed");
  static_cast<void>(At(row));
  Remove(row, row);
}

void Grid::Remove(int first, int last) {
  const int lastReported = redraw_ ? last : std::min(last, reportedRows_ - 1);
  const auto remove = [&]() noexcept {
    rows_.erase(rows_.begin() + first, rows_.begin() + last + 1);
    colors_.erase(colors_.begin() + first, colors_.begin() + last + 1);
    entries_.erase(entries_.begin() + first, entries_.begin() + last + 1);
    ids_.erase(ids_.begin() + first, ids_.begin() + last + 1);
    row_ = std::min(row_, Rows() - 1);
    sortedCol_ = -1;
  };
  if (first > lastReported) {
    remove();
    return;
  }
  reportedRows_ -= lastReported - first + 1;
  ChangeRows({GridChange::Kind::RowsRemoved, first, lastReported}, remove);
}

void Grid::SetCurrent(int row, int col) {
  static_cast<void>(At(row).Text(static_cast<std::size_t>(col)));
  if (row_ == row && col_ == col) return;
  row_ = row;
  col_ = col;
  ReportCurrent();
}

void Grid::Sort(int col, SortMode mode) {
  const std::vector<std::size_t> order = SortRows(rows_, static_cast<std::size_t>(col), mode);
  sortedCol_ = col;
  sortedDescending_ = mode == SortMode::GenericDescending || mode == SortMode::TextNoCaseDescending;
  FollowOrder(order);
}

void Grid::SortByEntry() {
  std::vector<std::size_t> order(rows_.size());
  std::iota(order.begin(), order.end(), 0U);
  std::ranges::sort(order, {}, [this](std::size_t row) { return entries_[row]; });
  sortedCol_ = -1;
  Arrange(order);
}

void Grid::Arrange(const std::vector<std::size_t>& order) {
  ReorderRows(rows_, order);
  FollowOrder(order);
}

void Grid::KeepOrder() { std::sort(entries_.begin(), entries_.end()); }

/// The rows have been reordered: row i is the one that had the index order[i].
void Grid::FollowOrder(const std::vector<std::size_t>& order) {
  const auto follow = [&order](std::vector<std::uint32_t>& numbers) {
    std::vector<std::uint32_t> moved;
    moved.reserve(order.size());
    for (const std::size_t row : order) moved.push_back(numbers[row]);
    numbers = std::move(moved);
  };
  follow(entries_);
  follow(ids_);
  const auto at = std::find(order.begin(), order.end(), static_cast<std::size_t>(row_));
  const int before = std::exchange(row_, static_cast<int>(at - order.begin()));
  ReportTexts({GridChange::Kind::AllTexts});
  if (row_ != before) ReportCurrent();
}

void Grid::SetSorted(int col, bool descending) {
  sortedCol_ = col;
  sortedDescending_ = descending;
  ReportTexts({GridChange::Kind::AllTexts});
}

void Grid::SetBackColor(std::uint32_t color) {
  if (backColor_ == color) return;
  backColor_ = color;
  StateChanged.Raise();
}

void Grid::SetRowBackColor(int row, std::uint32_t color) {
  std::uint32_t& old = colors_.at(static_cast<std::size_t>(row));
  if (old == color) return;
  old = color;
  ReportTexts({GridChange::Kind::RowTexts, row, row});
}

void Grid::SetRedraw(bool redraw) {
  if (redraw_ == redraw) return;
  redraw_ = redraw;
  if (!redraw) {
    reportedRows_ = Rows();
    textsUnreported_ = false;
    currentUnreported_ = false;
    return;
  }
  if (Rows() > reportedRows_) {
    ChangeRows({GridChange::Kind::RowsInserted, reportedRows_, Rows() - 1}, []() noexcept {});
  }
  if (textsUnreported_) ReportTexts({GridChange::Kind::AllTexts});
  if (currentUnreported_) ReportCurrent();
}

bool Grid::UserEdit(int row, int col, std::string text) {
  if (!AcceptsEdit(row, col) || !UserMoveTo(row, col)) return false;
  return StoreEdit(std::move(text));
}

/// RAII: until destruction another cell is the current one, no edit or batch of the user is open, and
/// InEditElsewhere.
class Grid::EditElsewhere {
 public:
  EditElsewhere(Grid& grid, int row, int col)
      : grid_(grid),
        id_(grid.RowID(grid.row_)),
        row_(std::exchange(grid.row_, row)),
        col_(std::exchange(grid.col_, col)),
        editText_(std::move(grid.editText_)),
        editAccepted_(grid.editAccepted_),
        inBatchEdit_(std::exchange(grid.inBatchEdit_, false)),
        inEditElsewhere_(std::exchange(grid.inEditElsewhere_, true)) {}
  EditElsewhere(const EditElsewhere&) = delete;
  EditElsewhere& operator=(const EditElsewhere&) = delete;
  ~EditElsewhere() {
    // A listener may have removed or moved rows.
    if (row_ >= grid_.Rows() || grid_.ids_[static_cast<std::size_t>(row_)] != id_) {
      const auto at = std::find(grid_.ids_.begin(), grid_.ids_.end(), id_);
      row_ = at != grid_.ids_.end() ? static_cast<int>(at - grid_.ids_.begin())
                                    : std::min(row_, grid_.Rows() - 1);
    }
    grid_.row_ = row_;
    grid_.col_ = col_;
    grid_.editText_ = std::move(editText_);
    grid_.editAccepted_ = editAccepted_;
    grid_.inBatchEdit_ = inBatchEdit_;
    grid_.inEditElsewhere_ = inEditElsewhere_;
  }

 private:
  Grid& grid_;
  std::uint32_t id_;
  int row_;
  int col_;
  std::string editText_;
  bool editAccepted_;
  bool inBatchEdit_;
  bool inEditElsewhere_;
};

bool Grid::UserEditElsewhere(int row, int col, std::string text) {
  if (!AcceptsEdit(row, col)) return false;
  const EditElsewhere elsewhere(*this, row, col);
  return StoreEdit(std::move(text));
}

bool Grid::AcceptsEdit(int row, int col) const {
  return Reachable() && !locked_ && IsDataCell(row, col) && IsEditable(col);
}

/// Lets the listeners test `text` for the current cell and stores it there. Returns whether it was stored.
bool Grid::StoreEdit(std::string text) {
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

bool Grid::UserSort(const SortRequest& request) {
  if (!Reachable() || request.col < 0 || request.col >= cols_) return false;
  RunEvent([&] {
    Parent().SetFocus(*this);
    SortWanted.Raise(request);
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

/// Reports a change, makes it and reports it again. `change` must not throw; the listeners may.
template <class Change>
void Grid::ChangeRows(const GridChange& reported, const Change& change) {
  static_assert(noexcept(change()));
  const int row = row_;
  const int col = col_;
  std::exception_ptr failure = RowsChanging.RaiseToAll(reported);
  change();
  const std::exception_ptr later = RowsChanged.RaiseToAll(reported);
  if (!failure) failure = later;
  if (failure) std::rethrow_exception(failure);
  if (row_ != row || col_ != col) ReportCurrent();
}

void Grid::ReportCurrent() {
  if (redraw_) {
    CurrentChanged.Raise();
  } else {
    currentUnreported_ = true;
  }
}

void Grid::ReportTexts(const GridChange& change) {
  if (redraw_) {
    RowsChanged.Raise(change);
  } else if (change.kind == GridChange::Kind::AllTexts || change.first < reportedRows_) {
    textsUnreported_ = true;
  }
}

}  // namespace koru
