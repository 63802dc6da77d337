#include "floor/FloorReplay.h"

#include <algorithm>
#include <map>
#include <set>
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

/// What a cell has gone through.
class Trail {
 public:
  explicit Trail(const JournalFigure& first) {
    cell_.count = first.count;
    cell_.line = first.figure.line;
  }

  void Add(const JournalFigure& figure) {
    if (!figure.IsOfDesk()) {
      overLeft_.clear();
      cell_.device = figure.device;
      cell_.sequence = figure.figure.sequence;
    } else if (!cell_.known.empty() && figure.before != cell_.text) {
      overLeft_.push_back({figure.before, cell_.text, cell_.known.size()});
    }
    cell_.known.push_back(figure.before);
    cell_.known.push_back(figure.answer.text);
    cell_.text = figure.answer.text;
    cell_.time = figure.time;
    if (!overLeft_.empty() && cell_.text == overLeft_.back().before) TakeDeskBack();
  }

  [[nodiscard]] const LeftFigures::Cell& Cell() const { return cell_; }

 private:
  /// The desk has begun to enter something into a cell that did not hold its last figure: that was left.
  struct OverLeft {
    std::string before;
    std::string left;
    std::size_t known = 0;
  };

  /// The desk has taken its own back: the figure is left as before.
  void TakeDeskBack() {
    cell_.text = overLeft_.back().left;
    cell_.known.resize(overLeft_.back().known);
    overLeft_.pop_back();
  }

  LeftFigures::Cell cell_;
  std::vector<OverLeft> overLeft_;
};

/// The trails of all cells, in the order of their first figures.
std::vector<Trail> TrailsOf(const std::vector<JournalFigure>& journal) {
  std::map<CellKey, std::size_t> places;
  std::vector<Trail> trails;
  for (const JournalFigure& figure : journal) {
    if (!figure.IsEntered()) continue;
    const auto [place, isNew] = places.try_emplace(KeyOf(figure), trails.size());
    if (isNew) trails.emplace_back(figure);
    trails[place->second].Add(figure);
  }
  return trails;
}

/// Takes out what is wanted, which is asked of each figure in their order.
template <typename Wanted>
std::vector<JournalFigure> Extract(std::vector<JournalFigure>& journal, const Wanted& isWanted) {
  std::vector<JournalFigure> extracted;
  std::vector<JournalFigure> rest;
  for (JournalFigure& figure : journal) (isWanted(figure) ? extracted : rest).push_back(std::move(figure));
  journal = std::move(rest);
  return extracted;
}

}  // namespace

LeftFigures::LeftFigures(const std::vector<JournalFigure>& journal, const Grid& grid, FloorLines& lines) {
  for (const Trail& trail : TrailsOf(journal)) {
    const Cell& cell = trail.Cell();
    if (cell.device.empty()) continue;  // the desk's own figures are in its draft
    if (!Holds(grid, lines.RowOf(cell.line), cell.count, cell.text)) cells_.push_back(cell);
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

std::vector<JournalFigure> LeftFigures::ExtractOthers(std::vector<JournalFigure>& journal, const Grid& grid,
                                                      FloorLines& lines) const {
  std::set<CellKey> lacking;
  for (const Cell& cell : cells_) {
    if (!Holds(grid, lines.RowOf(cell.line), cell.count, cell.text))
      lacking.emplace(cell.count, cell.line.barcode, cell.line.ordinal);
  }
  return Extract(journal, [&](const JournalFigure& figure) {
    return !figure.IsEntered() || !lacking.contains(KeyOf(figure));
  });
}

std::vector<JournalFigure> ExtractInPlace(std::vector<JournalFigure>& journal, const Grid& grid,
                                          FloorLines& lines) {
  struct Place {
    Trail trail;
    std::string before;  ///< all of them
    std::size_t figures = 0;
    std::size_t inPlace = 0;  ///< the first ones
    bool isHeld = false;      ///< the text after all of them so far
    std::size_t asked = 0;
  };
  std::map<CellKey, Place> places;
  for (const JournalFigure& figure : journal) {
    if (!figure.IsEntered()) continue;
    Place& place = places.try_emplace(KeyOf(figure), Place{Trail(figure), figure.before}).first->second;
    place.trail.Add(figure);
    ++place.figures;
    const LeftFigures::Cell& cell = place.trail.Cell();
    place.isHeld = Holds(grid, lines.RowOf(cell.line), cell.count, cell.text);
    if (place.isHeld && cell.text != place.before) place.inPlace = place.figures;
  }
  return Extract(journal, [&](const JournalFigure& figure) {
    if (!figure.IsEntered()) return false;
    Place& place = places.at(KeyOf(figure));
    return place.isHeld || place.asked++ < place.inPlace;
  });
}

}  // namespace koru
