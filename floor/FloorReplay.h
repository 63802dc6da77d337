#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "floor/FloorFigures.h"
#include "floor/FloorLines.h"
#include "floor/JournalText.h"

namespace koru {

/// Figures of a journal that are not in the counting: the program ended before they were saved. Of each cell
/// it is the last one, with all that the cell has held since the save: a draft of the desk may hold some of
/// it already, or something that the desk has entered later.
class LeftFigures {
 public:
  struct Cell {
    int count = 1;
    LineKey line;
    std::string text;                ///< the last one of it, of the floor or the desk
    std::string device;              ///< the id of the last device that entered a figure
    std::int64_t sequence = 0;       ///< of that figure
    std::vector<std::string> known;  ///< what the cell has held in between, and before
    std::chrono::sys_seconds time;   ///< of the last figure

    /// Whether the cell may take it: with that text, nobody has entered anything later.
    [[nodiscard]] bool MayReplace(std::string_view now) const;
    /// The journal's figure for its entry into the cell, which had the text `before`.
    [[nodiscard]] JournalFigure Entered(const std::string& before, const std::string& message) const;
  };

  LeftFigures() = default;
  /// The figures that the lines lack. A cell that holds its last figure lacks nothing.
  LeftFigures(const std::vector<JournalFigure>& journal, const Grid& grid, FloorLines& lines);

  [[nodiscard]] const std::vector<Cell>& Cells() const { return cells_; }
  /// Whether one of them could be entered now.
  [[nodiscard]] bool CanBeEntered(const Grid& grid, FloorLines& lines) const;
  /// Takes out of the journal all figures but those that are left: those of other cells, those of cells that
  /// hold their last one by now, and what was not entered.
  [[nodiscard]] std::vector<JournalFigure> ExtractOthers(std::vector<JournalFigure>& journal,
                                                         const Grid& grid, FloorLines& lines) const;

 private:
  std::vector<Cell> cells_;
};

/// Takes out of a journal the figures that cells have come from: a cell that holds what it held after one of
/// its figures has come from this one and those before it. If it held the same before all of them, it has
/// come from all or none: from all where it holds the last one.
[[nodiscard]] std::vector<JournalFigure> ExtractInPlace(std::vector<JournalFigure>& journal, const Grid& grid,
                                                        FloorLines& lines);

/// A left figure that was not entered.
struct NotEntered : LeftFigures::Cell {
  std::string now;      ///< the cell's text; empty when the line is gone
  std::string message;  ///< the form's own sentences
};

/// What became of left figures.
struct ReplayedFigures {
  std::size_t entered = 0;
  std::vector<NotEntered> gone;      ///< the counting has no such line
  bool hasBarcodeOfGone = false;     ///< but it has others of the barcode of one, which may hold the figure
  std::vector<NotEntered> replaced;  ///< the desk has entered something else since: it stays
  std::vector<NotEntered> refused;   ///< by the form
};

}  // namespace koru
