#include "floor/FloorReplay.h"

#include <map>
#include <tuple>
#include <utility>

namespace koru {

LeftFigures::LeftFigures(const std::vector<JournalFigure>& journal, const Grid& grid, FloorLines& lines) {
  std::map<std::tuple<int, std::string, int>, std::size_t> places;
  std::vector<Cell> cells;
  for (const JournalFigure& figure : journal) {
    if (!figure.IsEntered()) continue;
    const LineKey& line = figure.figure.line;
    const auto [place, isNew] =
        places.try_emplace(std::tuple(figure.count, line.barcode, line.ordinal), cells.size());
    if (isNew) cells.push_back({figure.count, line, {}, {}, {}, {}});
    Cell& cell = cells[place->second];
    cell.known.push_back(figure.before);
    cell.known.push_back(figure.answer.text);
    cell.text = figure.answer.text;
    cell.time = figure.time;
    if (!figure.IsOfDesk()) cell.device = figure.device;
  }
  for (Cell& cell : cells) {
    if (cell.device.empty()) continue;  // the desk's own figures are in its draft
    const int row = lines.RowOf(cell.line);
    const bool isThere = row != 0 && grid.TextMatrix(row, FloorLines::ColumnOf(cell.count)) == cell.text;
    if (!isThere) cells_.push_back(std::move(cell));
  }
}

}  // namespace koru
