#include "floor/FloorLines.h"

#include <algorithm>
#include <numeric>
#include <unordered_set>
#include <utility>

#include "lines/LineColumns.h"

namespace koru {
namespace {

std::string TextOf(const LineKey& key) { return std::to_string(key.ordinal) + '\n' + key.barcode; }

constexpr std::uint32_t kDrawn = 1'000'000'000;  ///< ordinals that can be drawn

std::size_t PlaceOf(int count) { return static_cast<std::size_t>(count - 1); }

}  // namespace

FloorLines::FloorLines(Grid& grid, std::int64_t revision, RandomBits random)
    : grid_(grid),
      revision_(revision),
      linesRevision_(revision),
      random_(std::move(random)),
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
  // Counts that the desk enters into many lines at once, as an import does, are taken within its command: to
  // take them later would hold the desk in the middle of something else.
  if (change.kind == GridChange::Kind::AllTexts && !grid_.Locked()) Refresh();
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
  auto& [latest, forgotten] = changes_.at(PlaceOf(count));
  latest.push_back({++revision_, id});
  if (latest.size() <= kMaxChanges) return;
  forgotten = latest.front().revision;
  latest.pop_front();
}

void FloorLines::Forget(std::uint32_t id) {
  const auto found = lines_.find(id);
  const LineKey& key = found->second.key;
  ids_.erase(TextOf(key));
  if (const auto of = barcodes_.find(key.barcode); --of->second.lines == 0) barcodes_.erase(of);
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
}

void FloorLines::ForgetWithout(const std::unordered_set<std::uint32_t>& present) {
  if (present.size() == lines_.size()) return;
  std::vector<std::uint32_t> gone;
  for (const auto& [id, line] : lines_) {
    if (!present.contains(id)) gone.push_back(id);
  }
  for (const std::uint32_t id : gone) Forget(id);
}

void FloorLines::SortByEntry(std::vector<int>& rows) const {
  std::ranges::sort(rows, {}, [this](int row) { return grid_.Entry(row); });
}

/// Gives keys to the lines of these rows, in their order of entry: that of the stored lines, however they are
/// sorted now.
void FloorLines::AddLines(std::vector<int> rows) {
  SortByEntry(rows);
  struct Added {
    std::size_t number = 0;
    std::vector<int> ordinals;  ///< of lines that are read
    std::size_t used = 0;       ///< of the ordinals
    int last = 0;               ///< the lowest ordinals, up to this one, are taken
  };
  std::unordered_map<std::string, Added> added;
  for (const int row : rows) ++added[std::string(grid_.TextMatrix(row, LineColumn::Barcode))].number;
  for (const int row : rows) {
    const std::uint32_t id = grid_.RowID(row);
    LineKey key{std::string(grid_.TextMatrix(row, LineColumn::Barcode)), 0};
    Added& of = added.at(key.barcode);
    if (areRead_ && of.used == 0) of.ordinals = OrdinalsOfRead(key.barcode, of.number);
    if (of.used < of.ordinals.size()) key.ordinal = of.ordinals[of.used++];
    if (key.ordinal == 0 || ids_.contains(TextOf(key)))
      key.ordinal = of.last = NextOrdinal(key.barcode, of.last);
    ids_.emplace(TextOf(key), id);
    auto& [lines, isDrawn] = barcodes_[key.barcode];
    ++lines;
    isDrawn = key.ordinal >= kFirstDrawn;
    Line line{std::move(key), row, {}, {}};
    for (int count = 1; count <= kFloorCounts; ++count) {
      line.figures.at(PlaceOf(count)) = grid_.TextMatrix(row, ColumnOf(count));
    }
    lines_.emplace(id, std::move(line));
  }
  linesRevision_ = ++revision_;
}

/// The ordinals of lines that are read, which are all that a barcode has.
std::vector<int> FloorLines::OrdinalsOfRead(const std::string& barcode, std::size_t number) {
  std::vector<int> ordinals(number);
  std::iota(ordinals.begin(), ordinals.end(), 1);
  if (!isContinued_) return ordinals;
  const auto stored = stored_.find(barcode);
  const bool isSingle = stored == stored_.end();
  if (areStored_ && number == (isSingle ? 1 : stored->second.size())) {
    return isSingle ? ordinals : stored->second;
  }
  if (!areStored_ && number == 1 && isSingle && !several_.contains(barcode)) return ordinals;
  // Which line is which, nobody knows: the desk has deleted or added some, or another station has.
  std::iota(ordinals.begin(), ordinals.end(), Draw());
  if (areStored_) StoredDrawn.Raise(barcode, stored_[barcode] = ordinals);
  return ordinals;
}

int FloorLines::Draw() { return kFirstDrawn + static_cast<int>(random_() % kDrawn); }

/// The lowest ordinal above `after` that is free. Beside ordinals that were drawn, low ones are those of
/// lines that nobody knows any more.
int FloorLines::NextOrdinal(const std::string& barcode, int after) {
  const auto of = barcodes_.find(barcode);
  const bool draws = of != barcodes_.end() && of->second.isDrawn;
  do after = draws ? Draw() : after + 1;
  while (ids_.contains(TextOf({barcode, after})));
  return after;
}

void FloorLines::Continue(StoredOrdinals stored, std::set<std::string> several) {
  stored_ = std::move(stored);
  several_ = std::move(several);
  isContinued_ = true;
}

void FloorLines::Begin(bool areStored) {
  areStored_ = areStored;
  Refresh();
  areStored_ = true;
  if (areStored) {
    KeepStored();
  } else if (!isContinued_) {
    for (const auto& [barcode, of] : barcodes_) {
      if (of.lines > 1) stored_[barcode].clear();
    }
  }
  isContinued_ = true;
}

bool FloorLines::ArePlain() const {
  return std::ranges::all_of(stored_, [](const auto& of) {
    int expected = 0;
    const std::vector<int>& ordinals = of.second;
    return !ordinals.empty() &&
           std::ranges::all_of(ordinals, [&expected](int ordinal) { return ordinal == ++expected; });
  });
}

void FloorLines::KeepStored() {
  Refresh();
  stored_.clear();
  std::vector<int> rows(static_cast<std::size_t>(grid_.Rows() - 1));
  std::iota(rows.begin(), rows.end(), 1);
  SortByEntry(rows);
  for (const int row : rows) {
    const auto found = lines_.find(grid_.RowID(row));
    if (found == lines_.end()) continue;
    const LineKey& key = found->second.key;
    if (key.ordinal > 1 || barcodes_.at(key.barcode).lines > 1) stored_[key.barcode].push_back(key.ordinal);
  }
}

int FloorLines::RowOf(const LineKey& key) {
  Refresh();
  const auto id = ids_.find(TextOf(key));
  return id == ids_.end() ? 0 : lines_.at(id->second).row;
}

bool FloorLines::HasBarcode(const std::string& barcode) {
  Refresh();
  return barcodes_.contains(barcode);
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
  const auto& [latest, forgotten] = changes_.at(PlaceOf(count));
  changes.linesChanged = revision < linesRevision_ || revision < forgotten || revision > revision_;
  if (changes.linesChanged) return changes;
  std::unordered_set<std::uint32_t> seen;
  for (auto change = latest.rbegin(); change != latest.rend() && change->revision > revision; ++change) {
    if (!seen.insert(change->id).second) continue;
    const auto line = lines_.find(change->id);
    if (line == lines_.end()) continue;
    changes.cells.push_back({line->second.key, line->second.figures.at(PlaceOf(count))});
  }
  std::reverse(changes.cells.begin(), changes.cells.end());
  return changes;
}

}  // namespace koru
