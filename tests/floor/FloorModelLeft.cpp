// FloorModel's part about figures that are left or set aside, and those that nobody may lose.

#include <algorithm>
#include <iterator>
#include <map>
#include <tuple>

#include "tests/floor/FloorModel.h"

namespace koru::test {
namespace {

const std::string& BarcodeOf(const FloorModel::Line& line) { return line.key.barcode; }
const std::string& BarcodeOf(const FloorModel::StoredLine& line) { return line.barcode; }

}  // namespace

/// Each cell after all of its figures. What the desk enters where a figure is left covers it until the desk
/// takes that back.
std::vector<FloorModel::LeftCell> FloorModel::Trails(const std::vector<Record>& records) {
  std::vector<LeftCell> cells;
  for (const Record& record : records) {
    if (!record.IsEntered()) continue;
    auto cell = std::find_if(cells.begin(), cells.end(), [&record](const LeftCell& known) {
      return known.count == record.count && known.line == record.figure.line;
    });
    if (cell == cells.end()) {
      cell = cells.insert(cell, {record.count, record.figure.line, {}, {}, 0, false, 0, {}, {}});
    } else if (!record.ofFloor && record.before != cell->last) {
      LeftCell covered = *cell;
      cell->missing = record.before;
      cell->covered = {std::move(covered)};
    }
    cell->known.insert(record.before);
    cell->known.insert(record.answer.text);
    cell->last = record.answer.text;
    cell->id = record.id;
    if (record.ofFloor) {
      cell->ofFloor = true;
      cell->sequence = record.figure.sequence;
      cell->covered.clear();
    } else if (!cell->covered.empty() && cell->last == cell->missing) {
      LeftCell covered = cell->covered.front();
      *cell = std::move(covered);
    }
  }
  return cells;
}

std::vector<FloorModel::LeftCell> FloorModel::Lacking(const std::vector<Record>& records) {
  std::vector<LeftCell> cells = Trails(records);
  std::erase_if(cells, [this](const LeftCell& cell) {
    const Line* const line = Find(cell.line);
    return !cell.ofFloor || (line != nullptr && line->counts.at(Place(cell.count)) == cell.last);
  });
  return cells;
}

/// The figures that cells have come from: up to the last one after which the cell held what it holds, but not
/// before all of them.
std::vector<FloorModel::Record> FloorModel::ExtractInPlace(std::vector<Record>& records) {
  using Cell = std::tuple<int, std::string, int>;
  const auto cellOf = [](const Record& record) {
    return Cell(record.count, record.figure.line.barcode, record.figure.line.ordinal);
  };
  std::map<Cell, std::size_t> all;
  for (const Record& record : records) all[cellOf(record)] += record.IsEntered() ? 1 : 0;
  std::map<Cell, std::vector<Record>> figures;
  std::map<Cell, std::size_t> held;
  for (const Record& record : records) {
    if (!record.IsEntered()) continue;
    std::vector<Record>& ofCell = figures[cellOf(record)];
    ofCell.push_back(record);
    const Line* const line = Find(record.figure.line);
    const std::string last = Trails(ofCell).front().last;
    if (line == nullptr || line->counts.at(Place(record.count)) != last) continue;
    if (ofCell.size() == all[cellOf(record)] || last != ofCell.front().before)
      held[cellOf(record)] = ofCell.size();
  }
  std::vector<Record> inPlace;
  std::vector<Record> others;
  for (const Record& record : records) {
    std::size_t& left = held[cellOf(record)];
    const bool isHeld = record.IsEntered() && left > 0;
    left -= isHeld ? 1 : 0;
    (isHeld ? inPlace : others).push_back(record);
  }
  records = std::move(others);
  return inPlace;
}

void FloorModel::Replay() {
  const std::vector<LeftCell> left = std::exchange(left_, {});
  const bool wereAside = std::exchange(leftIsAside_, false);
  bool isWhole = true;
  std::vector<Record> entered;
  for (const LeftCell& cell : left) {
    Line* const line = Find(cell.line);
    const bool isEntered = line != nullptr && cell.known.contains(line->counts.at(Place(cell.count)));
    isWhole = isWhole && isEntered;
    if (!isEntered) continue;
    const std::string before = std::exchange(line->counts.at(Place(cell.count)), cell.last);
    Change();
    Acknowledge(*line, cell.count);
    entered.push_back({cell.count,
                       true,
                       {cell.sequence, cell.line, FloorFigure::Operation::Set, cell.last, {}},
                       before,
                       {cell.sequence, FigureState::Stored, cell.last, {}, {}},
                       line->id});
    NotePlace(cell, *line);
  }
  std::vector<Record> taken;
  if (wereAside) {
    taken = ExtractInPlace(leftRecords_);
  } else if (isWhole) {
    holdsLeft_ = false;
  }
  taken.insert(taken.end(), entered.begin(), entered.end());
  leftRecords_.clear();
  for (const Record& record : taken) Keep(record);
  journal_.records.insert(journal_.records.end(), taken.begin(), taken.end());
  hasUnsaved_ = hasUnsaved_ || !taken.empty();
}

void FloorModel::NotePlace(const LeftCell& cell, const Line& line) {
  if (line.id == cell.id || Find(cell.id) == nullptr) return;
  misplaced_.push_back(cell.last + " of line " + std::to_string(cell.id) + " in line " +
                       std::to_string(line.id));
}

/// What is in its cell is the session's own.
void FloorModel::Forgo() {
  const std::vector<LeftCell> left = std::exchange(left_, {});
  std::vector<Record> records = std::exchange(leftRecords_, {});
  const std::vector<Record> inPlace = ExtractInPlace(records);
  if (!std::exchange(leftIsAside_, false)) {
    holdsLeft_ = false;
    SetJournalAside();
    ForgetLeft(left, records);
    hasUnsaved_ = false;
    BeginJournalAnew();
  }
  for (const Record& record : inPlace) Keep(record);
  journal_.records.insert(journal_.records.end(), inPlace.begin(), inPlace.end());
  hasUnsaved_ = hasUnsaved_ || !inPlace.empty();
}

/// The devices may send left figures anew, but none that the desk has corrected since. The left ones remain.
void FloorModel::ForgetLeft(const std::vector<LeftCell>& left, std::vector<Record>& records) {
  answered_.clear();
  entered_ = enteredBeforeLeft_;
  std::erase_if(records, [&](const Record& record) {
    const bool isLeft = std::any_of(left.begin(), left.end(), [&record](const LeftCell& cell) {
      return cell.count == record.count && cell.line == record.figure.line;
    });
    if (record.IsEntered() && isLeft) return false;
    Keep(record);
    return true;
  });
}

/// A save sets left figures aside, and holds what is in its cell. Those that are not decided have not reached
/// the counting.
void FloorModel::LeaveOutLeft() {
  const bool areUndecided = !left_.empty() && !leftIsAside_;
  if (std::exchange(holdsLeft_, false)) SetJournalAside();
  if (!areUndecided && !leftIsAside_) return;
  leftIsAside_ = true;
  const std::vector<Record> inPlace = ExtractInPlace(leftRecords_);
  if (areUndecided) ForgetLeft(left_, leftRecords_);
  for (const Record& record : inPlace) Keep(record);
}

bool FloorModel::CanBeEntered(const std::vector<LeftCell>& cells) {
  return std::any_of(cells.begin(), cells.end(), [this](const LeftCell& cell) {
    const Line* const line = Find(cell.line);
    return line != nullptr && cell.known.contains(line->counts.at(Place(cell.count)));
  });
}

/// The last journal with figures that could be entered, or else with figures that are nowhere.
bool FloorModel::TakeBackSetAside() {
  const Journal* found = nullptr;
  for (const Journal& journal : aside_) {
    const auto lacking = Lacking(journal.records);
    if (lacking.empty()) continue;
    if (found == nullptr || CanBeEntered(lacking)) found = &journal;
    if (CanBeEntered(lacking)) break;
  }
  if (found == nullptr) return false;
  left_ = Lacking(found->records);
  leftRecords_ = found->records;
  leftIsAside_ = true;
  return true;
}

bool FloorModel::IsLeft(const LineKey& line, int count) const {
  return std::any_of(left_.begin(), left_.end(),
                     [&](const LeftCell& cell) { return cell.line == line && cell.count == count; });
}

/// The desk has entered something later. Where the figure is still left, it may take that back.
void FloorModel::Supersede(const Line& line, int count, const std::string& before, const std::string& text) {
  const auto found = acknowledged_.find({line.id, count});
  if (found == acknowledged_.end()) return;
  std::vector<std::string>& under = found->second.under;
  if (!IsLeft(line.key, count)) {
    acknowledged_.erase(found);
  } else if (under.empty()) {
    under = {before};
  } else if (text == under.front()) {
    under.clear();
  }
}

std::string FloorModel::Lost() const {
  for (const auto& [cell, figure] : acknowledged_) {
    if (figure.under.empty() && !IsSomewhere(cell.first, cell.second, figure)) {
      return figure.text + " in count " + std::to_string(cell.second) + " of line " +
             std::to_string(cell.first) + ", " + figure.barcode;
    }
  }
  return {};
}

bool FloorModel::IsSomewhere(int id, int count, const Acknowledged& figure) const {
  const auto holds = [&](const auto& lines) {
    return std::any_of(lines.begin(), lines.end(), [&](const auto& line) {
      const bool isSame = line.id == id || BarcodeOf(line) == figure.barcode;
      return isSame && line.counts.at(Place(count)) == figure.text;
    });
  };
  const auto keeps = [&](const Journal& journal) {
    return std::any_of(journal.records.begin(), journal.records.end(), [&](const Record& record) {
      return record.count == count && record.figure.line.barcode == figure.barcode &&
             record.answer.text == figure.text;
    });
  };
  const bool isLeft = std::any_of(left_.begin(), left_.end(), [&](const LeftCell& cell) {
    return cell.count == count && cell.line.barcode == figure.barcode && cell.last == figure.text;
  });
  const bool isHeld = (holdsLeft_ || state_ != State::Running) && keeps(journal_);
  return holds(lines_) || holds(stored_) || isLeft || isHeld ||
         std::any_of(aside_.begin(), aside_.end(), keeps);
}

}  // namespace koru::test
