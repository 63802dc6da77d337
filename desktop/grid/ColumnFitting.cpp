#include "desktop/grid/ColumnFitting.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "desktop/grid/GridView.h"
#include "desktop/grid/RowNumbers.h"
#include "desktop/toolkit/Twips.h"

namespace koru {
namespace {

constexpr int kCellPadding = 12;
constexpr int kSignWidth = 14;  ///< of a sign or a mark
constexpr int kSampleRows = 50;
constexpr int kMaxTextWidth = 190;  ///< a longer text is cut off before it pushes other columns out of sight
constexpr int kMaxStretchTextWidth = 260;  ///< of the names, which have their width before other columns

}  // namespace

void ColumnFitting::FitLater() {
  if (requested_) return;
  requested_ = true;
  QTimer::singleShot(0, this, &ColumnFitting::FitNow);
}

void ColumnFitting::FitLaterUnlessFits(int row) {
  if (!requested_ && !Fits(row)) FitLater();
}

void ColumnFitting::ViewResized() {
  const int room = view_.viewport()->width() - fittedViewport_;
  const bool remains = room == 0 || (room > 0 && view_.Rows().IsFiltered());
  if (view_.width() != fittedView_ || !remains) FitLater();
}

void ColumnFitting::Arrange(ColumnArrangement arrangement) {
  arranged_ = std::move(arrangement);
  FitLater();
}

void ColumnFitting::FitColumn(int col) {
  arranged_.widths.erase(col);
  FitLater();
}

void ColumnFitting::ColumnResized(int col, int width) {
  if (!fitting_ && width > 0) arranged_.widths[col] = width;  // a column without width is hidden
}

void ColumnFitting::ColumnMoved() {
  if (fitting_) return;
  const QHeaderView& titles = *view_.horizontalHeader();
  arranged_.order.clear();
  for (int place = 0; place < titles.count(); ++place) arranged_.order.push_back(titles.logicalIndex(place));
  if (std::is_sorted(arranged_.order.begin(), arranged_.order.end())) arranged_.order.clear();
}

/// A grid with other columns than those that the user has moved keeps its own order.
void ColumnFitting::ShowOrder() {
  QHeaderView& titles = *view_.horizontalHeader();
  const bool isMoved = IsOrderOf(arranged_.order, titles.count());
  for (int place = 0; place < titles.count(); ++place) {
    const int col = isMoved ? arranged_.order[static_cast<std::size_t>(place)] : place;
    if (titles.visualIndex(col) != place) titles.moveSection(titles.visualIndex(col), place);
  }
}

void ColumnFitting::ShowColumn(int col, bool shown) {
  const QScopedValueRollback<bool> fitting(fitting_, true);
  view_.setColumnHidden(col, !shown);
  FitLater();
}

void ColumnFitting::FitNow() {
  requested_ = false;
  if (view_.Rows().Source() == nullptr) return;
  const QScopedValueRollback<bool> fitting(fitting_, true);
  ShowOrder();
  if (view_.Numbers() != nullptr) view_.Numbers()->Fit();
  std::vector<ColumnSizeHint> hints;
  for (int col = 0; col < view_.Rows().columnCount(); ++col) hints.push_back(SizeHintOf(col));
  const std::vector<int> widths =
      FitColumns(hints, view_.viewport()->width(), arranged_.widths.contains(stretch_) ? -1 : stretch_);
  for (int col = 0; col < view_.Rows().columnCount(); ++col) {
    const int width = widths[static_cast<std::size_t>(col)];
    view_.setColumnHidden(col, width == 0);
    if (width > 0 && view_.columnWidth(col) != width) view_.setColumnWidth(col, width);
  }
  fittedView_ = view_.width();
  fittedViewport_ = view_.viewport()->width();
}

bool ColumnFitting::Fits(int row) const {
  for (int col = 0; col < view_.Rows().columnCount(); ++col) {
    if (!view_.isColumnHidden(col) && !arranged_.widths.contains(col) &&
        TextWidth(row, col) + kCellPadding > view_.columnWidth(col))
      return false;
  }
  return true;
}

/// The width of a cell's text in pixels, as far as a column grows for it.
int ColumnFitting::TextWidth(int row, int col) const {
  const QString text = view_.Rows().index(row, col).data().toString();
  if (text.isEmpty()) return 0;
  const bool hasSign = view_.Rows().StyleOf(col).sign != ColumnStyle::Sign::None;
  const int sign = hasSign || view_.Rows().IsMarked(view_.Rows().index(row, col)) ? kSignWidth : 0;
  return std::min(QFontMetrics(view_.font()).horizontalAdvance(text) + sign,
                  col == stretch_ ? kMaxStretchTextWidth : kMaxTextWidth);
}

ColumnSizeHint ColumnFitting::SizeHintOf(int col) const {
  const GridModel& rows = view_.Rows();
  const Grid& grid = *rows.Source();
  const int natural = grid.ColWidth(col) / kTwipsPerPixel;
  if (natural == 0 || rows.StyleOf(col).hidden || rows.StyleOf(col).concealed || col < view_.FirstColumn())
    return {};
  const auto chosen = arranged_.widths.find(col);
  if (chosen != arranged_.widths.end()) return {chosen->second, chosen->second};
  QFont headerFont = view_.font();
  headerFont.setBold(grid.IsEditable(col));
  const QString title = rows.headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
  int needed = TwoLineWidth(title, QFontMetrics(headerFont));
  const int first = std::max(0, view_.rowAt(0));
  const int end = std::min(first + kSampleRows, rows.rowCount());
  for (int row = first; row < end; ++row) needed = std::max(needed, TextWidth(row, col));
  return {needed + kCellPadding, std::max(natural, needed + kCellPadding)};
}

}  // namespace koru
