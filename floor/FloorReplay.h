#pragma once

#include <chrono>
#include <cstddef>
#include <string>
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
    std::vector<std::string> known;  ///< what the cell has held in between, and before
    std::chrono::sys_seconds time;   ///< of the last figure
  };

  LeftFigures() = default;
  /// The figures that the lines lack. A cell that holds its last figure lacks nothing.
  LeftFigures(const std::vector<JournalFigure>& journal, const Grid& grid, FloorLines& lines);

  [[nodiscard]] const std::vector<Cell>& Cells() const { return cells_; }

 private:
  std::vector<Cell> cells_;
};

/// What became of left figures.
struct ReplayedFigures {
  std::size_t entered = 0;
  std::vector<LeftFigures::Cell> gone;      ///< the counting has no such line
  std::vector<LeftFigures::Cell> replaced;  ///< the desk has entered something else since: it stays
  std::vector<LeftFigures::Cell> refused;   ///< by the form
};

}  // namespace koru
