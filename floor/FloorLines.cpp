#include "floor/FloorLines.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "lines/LineColumns.h"

namespace koru {
namespace {

/// A device that has not asked for longer reads all lines anew.
constexpr std::size_t kMaxChanges = 100'000;

std::string TextOf(const LineKey& key) { return std::to_string(key.ordinal) + '\n' + key.barcode; }

std::size_t PlaceOf(int count) { return static_cast<std::size_t>(count - 1); }

}  // namespace

FloorLines::FloorLines(Grid& grid, std::int64_t revision)
    : grid_(grid),
      revision_(revision),
      linesRevision_(revision),
      forgotten_(revision),
      subscription_(grid.RowsChanged.Subscribe([this](const GridChange& change) { Follow(change); })) {}

int FloorLines::ColumnOf(int count) { return LineColumn::FirstCounting + count - 1; }

void FloorLines::Follow(const GridChange& change) {
  if (!stale_ && change.kind == GridChange::Kind::RowTexts) {
    const std::uint32_t id = grid_.RowID(change.first);
    const auto found = lines_.find(id);
    const std::string_view barcode = grid_.TextMatrix(change.first, LineColumn::Barcode);
    const bool isSame = found == lines_.end() ? barcode.empty() : found->second.key.barcode == barcode;
    if (isSame) {
      const std::int64_t before = revision_;
      if (found != lines_.end()) TakeFigures(found->second, id);
      if (revision_ == before) return;
      Changed.Raise();
      return;
    }
  }
  stale_ = true;
  // While the grid is locked nobody adds lines: they are read.
  areRead_ = areRead_ || (change.kind == GridChange::Kind::RowsInserted && grid_.Locked());
  Changed.Raise();
}

/// Logs the counts of the line that are others than before.
void FloorLines::TakeFigures(Line& line, std::uint32_t id) {
  for (int count = 1; count <= kFloorCounts; ++count) {
    const std::string_view now = grid_.TextMatrix(line.row, ColumnOf(count));
    std::string& known = line.figures.at(PlaceOf(count));
    if (known == now) continue;
    const std::string before = std::exchange(known, std::string(now));
    line.by.at(PlaceOf(count)).clear();
    LogFigure(id, count);
    FigureChanged.Raise(line.key, count, before, known);
  }
}

void FloorLines::LogFigure(std::uint32_t id, int count) {
  changes_.push_back({++revision_, id, count});
  if (changes_.size() <= kMaxChanges) return;
  forgotten_ = changes_.front().revision;
  changes_.pop_front();
}

void FloorLines::Forget(std::uint32_t id) {
  const auto found = lines_.find(id);
  const LineKey& key = found->second.key;
  ids_.erase(TextOf(key));
  if (const auto number = ofBarcode_.find(key.barcode); --number->second == 0) ofBarcode_.erase(number);
  lines_.erase(found);
  linesRevision_ = ++revision_;
}

void FloorLines::Refresh() {
  if (!stale_) return;
  stale_ = false;
  std::unordered_set<std::uint32_t> present;
  std::vector<int> added;
  for (int row = 1; row < grid_.Rows(); ++row) {
    const std::string_view barcode = grid_.TextMatrix(row, LineColumn::Barcode);
    const auto found = lines_.find(grid_.RowID(row));
    if (found != lines_.end() && found->second.key.barcode == barcode) {
      present.insert(found->first);
      found->second.row = row;
      TakeFigures(found->second, found->first);
    } else if (!barcode.empty()) {
      added.push_back(row);
    }
  }
  ForgetWithout(present);
  if (!added.empty()) AddLines(std::move(added));
  areRead_ = false;
  isOrderOfRows_ = false;
}

void FloorLines::ForgetWithout(const std::unordered_set<std::uint32_t>& present) {
  if (present.size() == lines_.size()) return;
  std::vector<std::uint32_t> gone;
  for (const auto& [id, line] : lines_) {
    if (!present.contains(id)) gone.push_back(id);
  }
  for (const std::uint32_t id : gone) Forget(id);
}

/// Gives keys to the lines of these rows, in the order in which the rows were appended: that of the stored
/// lines, however they are sorted now.
void FloorLines::AddLines(std::vector<int> rows) {
  if (!isOrderOfRows_)
    std::sort(rows.begin(), rows.end(), [this](int a, int b) { return grid_.RowID(a) < grid_.RowID(b); });
  struct Ordinals {
    std::vector<int> stored;  ///< of lines that are read anew, in their order
    std::size_t used = 0;
    int last = 0;  ///< the ordinals up to this one are taken
  };
  std::unordered_map<std::string, Ordinals> ordinals;
  for (const int row : rows) {
    const std::uint32_t id = grid_.RowID(row);
    LineKey key{std::string(grid_.TextMatrix(row, LineColumn::Barcode)), 1};
    const auto [found, isFirst] = ordinals.try_emplace(key.barcode);
    Ordinals& of = found->second;
    const auto stored = stored_.find(key.barcode);
    if (areRead_ && isFirst && stored != stored_.end()) of.stored = stored->second;
    const bool isStored = of.used < of.stored.size();
    if (isStored) key.ordinal = of.stored[of.used++];
    if (!isStored || ids_.contains(TextOf(key))) {
      do key.ordinal = ++of.last;
      while (ids_.contains(TextOf(key)));
    }
    ids_.emplace(TextOf(key), id);
    ++ofBarcode_[key.barcode];
    Line line{std::move(key), row, {}, {}};
    for (int count = 1; count <= kFloorCounts; ++count) {
      line.figures.at(PlaceOf(count)) = grid_.TextMatrix(row, ColumnOf(count));
    }
    lines_.emplace(id, std::move(line));
  }
  linesRevision_ = ++revision_;
}

void FloorLines::KeepStored() {
  Refresh();
  stored_.clear();
  StoredOrdinals several;
  for (int row = 1; row < grid_.Rows(); ++row) {
    const auto found = lines_.find(grid_.RowID(row));
    if (found == lines_.end()) continue;
    const LineKey& key = found->second.key;
    if (key.ordinal > 1 || ofBarcode_.at(key.barcode) > 1) several[key.barcode].push_back(key.ordinal);
  }
  for (auto& [barcode, ordinals] : several) {
    int expected = 0;
    const bool isPlain = std::all_of(ordinals.begin(), ordinals.end(),
                                     [&expected](int ordinal) { return ordinal == ++expected; });
    if (!isPlain) stored_.emplace(barcode, std::move(ordinals));
  }
}

int FloorLines::RowOf(const LineKey& key) {
  Refresh();
  const auto id = ids_.find(TextOf(key));
  return id == ids_.end() ? 0 : lines_.at(id->second).row;
}

bool FloorLines::HasBarcode(const std::string& barcode) {
  Refresh();
  return ofBarcode_.contains(barcode);
}

FloorLines::Line* FloorLines::LineAt(int row) {
  Refresh();
  const auto found = lines_.find(grid_.RowID(row));
  return found == lines_.end() ? nullptr : &found->second;
}

std::vector<FloorLine> FloorLines::All(int count) {
  Refresh();
  std::vector<FloorLine> all;
  all.reserve(lines_.size());
  // Not as the desk has sorted them, which can tell of another count.
  std::vector<std::pair<std::uint32_t, int>> rows;
  rows.reserve(lines_.size());
  for (int row = 1; row < grid_.Rows(); ++row) rows.emplace_back(grid_.RowID(row), row);
  std::sort(rows.begin(), rows.end());
  for (const auto& [id, place] : rows) {
    const auto found = lines_.find(id);
    if (found == lines_.end()) continue;
    const auto text = [this, row = place](int col) { return std::string(grid_.TextMatrix(row, col)); };
    all.push_back({found->second.key, text(LineColumn::GoodCode), text(LineColumn::GoodName),
                   text(LineColumn::UnitName), text(ColumnOf(count))});
  }
  return all;
}

const std::string& FloorLines::EnteredBy(int row, int count) {
  static const std::string kDesk;
  const Line* const line = LineAt(row);
  return line == nullptr ? kDesk : line->by.at(PlaceOf(count));
}

void FloorLines::SetEnteredBy(int row, int count, const std::string& device) {
  if (Line* const line = LineAt(row)) line->by.at(PlaceOf(count)) = device;
}

std::int64_t FloorLines::Revision() {
  Refresh();
  return revision_;
}

FloorChanges FloorLines::Since(std::int64_t revision, int count) {
  Refresh();
  FloorChanges changes;
  changes.revision = revision_;
  changes.linesChanged = revision < linesRevision_ || revision < forgotten_ || revision > revision_;
  if (changes.linesChanged) return changes;
  std::unordered_set<std::uint32_t> seen;
  for (auto change = changes_.rbegin(); change != changes_.rend() && change->revision > revision; ++change) {
    if (change->count != count || !seen.insert(change->id).second) continue;
    const auto line = lines_.find(change->id);
    if (line == lines_.end()) continue;
    changes.cells.push_back({line->second.key, line->second.figures.at(PlaceOf(count))});
  }
  std::reverse(changes.cells.begin(), changes.cells.end());
  return changes;
}

}  // namespace koru
