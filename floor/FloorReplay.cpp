#include "floor/FloorReplay.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>
#include <utility>

namespace koru {
namespace {

using CellKey = std::tuple<int, std::string, int>;

CellKey KeyOf(const JournalFigure& figure) {
  return {figure.count, figure.figure.line.barcode, figure.figure.line.ordinal};
}

bool Holds(const Grid& grid, int row, int count, const std::string& text) {
  return row != 0 && grid.TextMatrix(row, FloorLines::ColumnOf(count)) == text;
}

}  // namespace

LeftFigures::LeftFigures(const std::vector<JournalFigure>& journal, const Grid& grid, FloorLines& lines) {
  std::map<CellKey, std::size_t> places;
  std::vector<Cell> cells;
  for (const JournalFigure& figure : journal) {
    if (!figure.IsEntered()) continue;
    const auto [place, isNew] = places.try_emplace(KeyOf(figure), cells.size());
    if (isNew) cells.push_back({figure.count, figure.figure.line, {}, {}, 0, {}, {}});
    Cell& cell = cells[place->second];
    cell.known.push_back(figure.before);
    cell.known.push_back(figure.answer.text);
    cell.text = figure.answer.text;
    cell.time = figure.time;
    if (figure.IsOfDesk()) continue;
    cell.device = figure.device;
    cell.sequence = figure.figure.sequence;
  }
  for (Cell& cell : cells) {
    if (cell.device.empty()) continue;  // the desk's own figures are in its draft
    if (!Holds(grid, lines.RowOf(cell.line), cell.count, cell.text)) cells_.push_back(std::move(cell));
  }
}

bool LeftFigures::Cell::MayReplace(std::string_view now) const {
  return std::find(known.begin(), known.end(), now) != known.end();
}

JournalFigure LeftFigures::Cell::Entered(const std::string& before, const std::string& message) const {
  JournalFigure entered;
  entered.count = count;
  entered.device = device;
  entered.figure = {sequence, line, FloorFigure::Operation::Set, text, {}};
  entered.answer = {sequence, message.empty() ? FigureState::Stored : FigureState::Warned, text, message, {}};
  entered.before = before;
  entered.time = time;
  return entered;
}

bool LeftFigures::CanBeEntered(const Grid& grid, FloorLines& lines) const {
  return std::any_of(cells_.begin(), cells_.end(), [&](const Cell& cell) {
    const int row = lines.RowOf(cell.line);
    return row != 0 && cell.MayReplace(grid.TextMatrix(row, FloorLines::ColumnOf(cell.count)));
  });
}

std::vector<JournalFigure> FiguresInPlace(const std::vector<JournalFigure>& journal, const Grid& grid,
                                          FloorLines& lines) {
  std::map<CellKey, bool> inPlace;
  for (const JournalFigure& figure : journal) {
    if (!figure.IsEntered()) continue;
    inPlace[KeyOf(figure)] = Holds(grid, lines.RowOf(figure.figure.line), figure.count, figure.answer.text);
  }
  std::vector<JournalFigure> figures;
  std::copy_if(journal.begin(), journal.end(), std::back_inserter(figures),
               [&](const JournalFigure& figure) { return figure.IsEntered() && inPlace.at(KeyOf(figure)); });
  return figures;
}

}  // namespace koru
