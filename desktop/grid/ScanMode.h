#pragma once

#include <QString>
#include <functional>
#include <limits>
#include <utility>

#include "desktop/grid/GridSearch.h"

class QKeyEvent;
class QTableView;

namespace koru {

/// Searching a GridView by typing, and entering figures for scanned rows.
///
/// In a read-only column, typing searches: the current cell moves to the first row whose text matches
/// (GridSearch). If none matches, the cell stays and a hint is shown; the next Enter or Tab dismisses the
/// search, because scanners end a text with one of them. In the scan column, Enter on a row whose whole text
/// was typed moves on to the row's figure, and Enter on the figure moves back to the scan column, ready for
/// the next scan. There, an Enter without a scan has no effect, so that a count that is typed next cannot
/// reach a row that was not scanned. Any other move ends the search.
///
/// A text that comes at a scanner's pace (TypingPace) is a scan wherever the current cell is: Scanned.
class ScanMode {
 public:
  enum class State {
    Idle,       ///< no search
    Searching,  ///< within TypeKeys: the search moves the current cell; its move wins over those of handlers
    Found,      ///< the current row matches the typed text
    NotFound,   ///< no row matches; a hint is shown
    Dismissed,  ///< an Enter or Tab has ended a failed search; its hint is still shown
    Figure,     ///< the current cell is a figure of a scanned row
    Ready       ///< the figure of a scanned row was entered; the scan column waits for the next scan
  };

  /// `failed` is called when a search or a scan has found no row.
  ScanMode(QTableView& view, std::function<void()> failed) : view_(view), failed_(std::move(failed)) {}

  /// Called with a text that was scanned, or typed into the scan column and ended with Enter or Tab, and that
  /// no row has.
  void SetUnknownScan(std::function<void(const QString&)> unknown) { unknown_ = std::move(unknown); }
  /// Finds a scanned text in the rows that the view does not show, shows the row that has it, and returns the
  /// row's cell in the scan column; an invalid index if no such row has it.
  void SetHiddenRows(std::function<QModelIndex(const QString&)> reveal) { reveal_ = std::move(reveal); }
  /// The column whose texts are scanned; -1: none.
  void SetScanColumn(int col) { scanColumn_ = col; }
  [[nodiscard]] int ScanColumn() const { return scanColumn_; }
  [[nodiscard]] bool HasScanColumn() const { return scanColumn_ >= 0; }
  /// The columns that take the figures of scanned rows, if they can be edited. All by default.
  void SetFigureColumns(int first, int last);
  [[nodiscard]] State CurrentState() const { return state_; }

  /// Adds typed characters to the search and moves to the row found. Characters that cannot be printed end
  /// it.
  void TypeKeys(const QString& keys);
  /// A scanner has sent `text` and the key that ends it: moves to the figure of the row that has it as its
  /// whole text in the scan column. If no row has it, moves to the scan column, so that no figure is typed
  /// into the row by mistake, shows a hint and reports the failure.
  void Scanned(const QString& text);
  /// Handles an Enter outside of a cell editor. Returns false if the key has no meaning here.
  bool EnterPressed();
  /// Handles a Tab outside of a cell editor. Returns false if the key has no meaning here.
  bool TabPressed();
  /// Enter in a cell editor has stored a figure. Moves back to the scan column if it is the figure of a
  /// scanned row, and keeps its column for the next scans; otherwise returns false.
  bool FigureStored();
  /// A figure was stored because the next scan has begun without an Enter: keeps its column for the next
  /// scans.
  void FigureLeftByScan();
  /// Runs the default action of a key, which moves the current cell. Moving sideways to another figure of a
  /// scanned row keeps the state.
  void MoveBy(const QKeyEvent& key, const std::function<void()>& defaultAction);

  /// The current cell has moved, or the rows have changed: ends the search unless it made the move itself.
  void CellMoved();
  /// Ends the search and hides the hint.
  void Leave();

 private:
  bool GoToFigure();
  void MoveTo(const QModelIndex& cell);
  void KeepFigureColumn();
  void Fail(const QString& hint);
  void ShowHint(const QString& text);
  [[nodiscard]] bool TakesFigure(const QModelIndex& cell) const;
  [[nodiscard]] QModelIndex RowOf(const QString& scanned);
  bool GoToHiddenRow(const QString& scanned);
  [[nodiscard]] QString TitleOf(int col) const;
  [[nodiscard]] bool IsHintShown() const { return state_ == State::NotFound || state_ == State::Dismissed; }

  QTableView& view_;
  std::function<void()> failed_;
  std::function<void(const QString&)> unknown_ = [](const QString&) {};
  std::function<QModelIndex(const QString&)> reveal_ = [](const QString&) { return QModelIndex(); };
  GridSearch search_;
  State state_ = State::Idle;
  int scanColumn_ = -1;
  int firstFigure_ = 0;
  int lastFigure_ = std::numeric_limits<int>::max();
  int figureColumn_ = -1;  ///< the column of the last figure that was entered for a scanned row; -1: none yet
};

}  // namespace koru
