#include "tests/floor/FloorModel.h"

#include <algorithm>

#include "platform/text/Numbers.h"
#include "platform/text/Text.h"

namespace koru::test {
namespace {

/// The barcodes of which there are figures of several lines.
std::set<std::string> Several(const std::vector<FloorModel::Record>& records) {
  std::set<std::string> several;
  for (const FloorModel::Record& record : records) {
    const bool hasLine = record.answer.state != FigureState::Gone;
    if (hasLine && record.figure.line.ordinal > 1) several.insert(record.figure.line.barcode);
  }
  return several;
}

}  // namespace

FloorModel::FloorModel(std::vector<StoredLine> lines) : stored_(std::move(lines)) {
  ReadStored();
  begun_ = lines_;
}

FloorModel::Line* FloorModel::Find(int id) {
  const auto found =
      std::find_if(lines_.begin(), lines_.end(), [id](const Line& line) { return line.id == id; });
  return found == lines_.end() ? nullptr : &*found;
}

FloorModel::Line* FloorModel::Find(const LineKey& key) {
  const auto found =
      std::find_if(lines_.begin(), lines_.end(), [&key](const Line& line) { return line.key == key; });
  return found == lines_.end() ? nullptr : &*found;
}

int FloorModel::FreeOrdinal(const std::string& barcode) {
  int ordinal = 1;
  while (Find(LineKey{barcode, ordinal}) != nullptr) ++ordinal;
  return ordinal;
}

// What the desk does.

void FloorModel::DeskEnters(int id, int count, const std::string& text) {
  Line& line = *Find(id);
  const std::string before = std::exchange(line.counts.at(Place(count)), text);
  Change();
  if (before == text) return;
  Supersede(line, count, before, text);
  if (state_ == State::Ended) return;
  journal_.records.push_back({count,
                              false,
                              {0, line.key, FloorFigure::Operation::Set, text, {}},
                              before,
                              {0, FigureState::Stored, text, {}, {}},
                              id});
  if (!left_.empty()) leftRecords_.push_back(journal_.records.back());
}

void FloorModel::DeskAdds(int id, const std::string& barcode) {
  const bool isDrawn = std::any_of(lines_.begin(), lines_.end(), [&barcode](const Line& line) {
    return line.key.barcode == barcode && (line.key.ordinal < 0 || line.key.ordinal >= kFirstDrawn);
  });
  lines_.push_back({id, {barcode, isDrawn ? Draw() : FreeOrdinal(barcode)}, {}});
  Change();
}

std::ptrdiff_t FloorModel::Number(const std::string& barcode) const {
  return std::count_if(lines_.begin(), lines_.end(),
                       [&barcode](const Line& line) { return line.key.barcode == barcode; });
}

void FloorModel::DeskDeletes(int id) {
  std::erase_if(lines_, [id](const Line& line) { return line.id == id; });
  Change();
  std::erase_if(acknowledged_, [id](const auto& figure) { return figure.first.first == id; });
}

void FloorModel::Save(const std::vector<int>& order) {
  std::vector<StoredLine> saved;
  saved.reserve(order.size());
  for (const int id : order) saved.push_back({id, Find(id)->key.barcode, Find(id)->counts});
  stored_ = std::move(saved);
  areStored_ = true;
  isChangedElsewhere_ = false;
  const auto place = [&order](const Line& line) { return std::find(order.begin(), order.end(), line.id); };
  std::sort(lines_.begin(), lines_.end(),
            [&place](const Line& a, const Line& b) { return place(a) < place(b); });
  KeepOrdinals();
  Settle(true);
}

void FloorModel::Cancel() {
  if (isWritten_) KeepOrdinals();
  Settle(isWritten_);
}

void FloorModel::Edit() {
  if (isChangedElsewhere_) ReadStored();
  isEdited_ = true;
  isWritten_ = areStored_;
  begun_ = lines_;
}

/// What nobody has changed is not worth a draft.
bool FloorModel::DraftIsCurrent() const {
  const std::vector<Line>& kept = draft_ ? *draft_ : begun_;
  return std::equal(kept.begin(), kept.end(), lines_.begin(), lines_.end(),
                    [](const Line& a, const Line& b) { return a.id == b.id && a.counts == b.counts; });
}

void FloorModel::ShowStored() {
  if (isEdited_) Settle(false);
  ReadStored();
}

/// What another station has changed is its own: figures of devices that the database had are superseded.
void FloorModel::OtherStationWrites(std::vector<StoredLine> lines) {
  Supersede(lines);
  stored_ = std::move(lines);
  isChangedElsewhere_ = true;
}

void FloorModel::Supersede(const std::vector<StoredLine>& lines) {
  for (const StoredLine& before : stored_) {
    const auto now = std::find_if(lines.begin(), lines.end(),
                                  [&before](const StoredLine& line) { return line.id == before.id; });
    for (int count = 1; count <= kFloorCounts; ++count) {
      const bool isSame =
          now != lines.end() && now->counts.at(Place(count)) == before.counts.at(Place(count));
      if (!isSame) acknowledged_.erase({before.id, count});
    }
  }
}

void FloorModel::ReadStored() {
  areStored_ = true;
  isChangedElsewhere_ = false;
  lines_.clear();
  for (const StoredLine& line : stored_) lines_.push_back({line.id, {line.barcode, 0}, line.counts});
  if (state_ != State::Ended) GiveKeys(true);
}

/// Lines that are read have the ordinals of the stored ones of their barcode, in their order. Where their
/// number is another one, and on a form whose lines are not the stored ones, several lines of a barcode have
/// new ordinals.
void FloorModel::GiveKeys(bool onStored) {
  std::map<std::string, std::vector<Line*>> barcodes;
  for (Line& line : lines_) barcodes[line.key.barcode].push_back(&line);
  for (auto& [barcode, lines] : barcodes) {
    const auto stored = ordinals_.find(barcode);
    const bool isOne = stored == ordinals_.end() || stored->second == std::vector{1};
    std::vector<int> ordinals;
    if (!isContinued_) {
      for (int next = 1; ordinals.size() < lines.size(); ++next) ordinals.push_back(next);
    } else if (isOne && lines.size() == 1 && (onStored || !several_.contains(barcode))) {
      ordinals = {1};
    } else if (onStored && !isOne && stored->second.size() == lines.size()) {
      ordinals = stored->second;
    } else {
      while (ordinals.size() < lines.size()) ordinals.push_back(Draw());
      if (onStored) ordinals_[barcode] = ordinals;
    }
    for (std::size_t at = 0; at < lines.size(); ++at) lines[at]->key.ordinal = ordinals[at];
  }
}

void FloorModel::TakeDrawn(const std::map<int, int>& ordinalsByLine) {
  for (Line& line : lines_) {
    if (line.key.ordinal > 0) continue;
    const int drawn = ordinalsByLine.at(line.id);
    for (Ordinals* const ordinals : {&ordinals_, &journal_.ordinals}) {
      for (auto& [barcode, ofLines] : *ordinals)
        std::replace(ofLines.begin(), ofLines.end(), line.key.ordinal, drawn);
    }
    line.key.ordinal = drawn;
  }
}

// The session.

void FloorModel::Begin() {
  const bool onStored = isWritten_;
  state_ = State::Running;
  answered_.clear();
  leftIsAside_ = false;
  isContinued_ = hasJournal_ || last_;
  const bool isNew = !std::exchange(hasJournal_, true);
  if (isNew) {
    journal_ = {};
    journal_.entered = enteredAtEnd_;
    if (last_) journal_.ordinals = *last_;
    several_ = Several(lastRecords_);
  } else {
    several_ = Several(journal_.records);
  }
  ordinals_ = journal_.ordinals;
  GiveKeys(onStored);
  if (onStored) {
    KeepOrdinals();
  } else if (!isContinued_) {
    for (const Line& line : lines_) {
      if (line.key.ordinal > 1) ordinals_[line.key.barcode].clear();
    }
  }
  isContinued_ = true;
  std::vector<Record> last = isNew ? lastRecords_ : std::vector<Record>();
  std::vector<Record> inPlace = ExtractInPlace(last);
  if (isNew && !onStored) journal_.records = std::move(inPlace);
  if (isNew && onStored) {
    for (const Record& record : inPlace) {
      if (record.ofFloor) journal_.entered.emplace(record.count, record.figure.sequence);
    }
  }
  journal_.ordinals = ordinals_;
  entered_ = journal_.entered;
  enteredBeforeLeft_ = journal_.entered;
  hasUnsaved_ = false;
  for (const Record& record : journal_.records) {
    hasUnsaved_ = hasUnsaved_ || record.IsEntered();
    Keep(record);
  }
  left_ = Lacking(journal_.records);
  leftRecords_ = journal_.records;
  holdsLeft_ = !left_.empty();
}

/// A device that sends the figure again gets the answer that it had.
void FloorModel::Keep(const Record& record) {
  if (!record.ofFloor) return;
  const FigureKey figure{record.count, record.figure.sequence};
  answered_.try_emplace(figure, record.answer);
  if (record.IsEntered()) entered_.insert(figure);
}

FloorAnswer FloorModel::Take(int count, const FloorFigure& figure) {
  const FigureKey key{count, figure.sequence};
  if (const auto known = answered_.find(key); known != answered_.end()) return known->second;
  FloorAnswer answer{figure.sequence, FigureState::Paused, {}, {}, {}};
  if (!IsOpen()) return answer;
  Line* const line = Find(figure.line);
  Record record{count,  true,
                figure, line == nullptr ? "" : line->counts.at(Place(count)),
                {},     line == nullptr ? 0 : line->id};
  answer.text = record.before;
  answer.state = FigureState::Stored;
  if (entered_.contains(key)) return answer;  // its answer has been forgotten
  const bool adds = figure.operation == FloorFigure::Operation::Add;
  const double number = Val(figure.text) + (adds ? Val(record.before) : 0);
  if (line == nullptr) {
    answer.state = FigureState::Gone;
  } else if (!adds && record.before != figure.base) {
    if (record.before != figure.text) answer.state = FigureState::Conflict;
  } else if (number < 0) {
    answer.state = FigureState::Refused;
  } else {
    answer.text = figure.text.empty() ? "" : NumberText(number);
    line->counts.at(Place(count)) = answer.text;
    Change();
  }
  record.answer = answer;
  if (record.IsEntered()) Acknowledge(*line, count);
  hasUnsaved_ = hasUnsaved_ || record.IsEntered();
  journal_.records.push_back(record);
  Keep(record);
  return answer;
}

void FloorModel::Acknowledge(const Line& line, int count) {
  DropSame(line, count);
  acknowledged_[{line.id, count}] = {line.key.barcode, line.counts.at(Place(count)), {}};
}

/// The same figure of a line that the form has lost is in this line.
void FloorModel::DropSame(const Line& line, int count) {
  const std::string& text = line.counts.at(Place(count));
  std::erase_if(acknowledged_, [&](const auto& known) {
    const auto& [cell, figure] = known;
    const bool isSame = cell.second == count && figure.barcode == line.key.barcode && figure.text == text;
    return isSame && Find(cell.first) == nullptr;
  });
}

/// The entry has ended.
void FloorModel::Settle(bool isWritten) {
  const bool wasEdited = std::exchange(isEdited_, false);
  if (wasEdited) draft_.reset();
  if (state_ == State::Ended || !wasEdited) return;
  if (!isWritten) return End();
  hasUnsaved_ = false;
  LeaveOutLeft();
  if (state_ == State::Stopped) return End();
  BeginJournalAnew();
}

void FloorModel::End() {
  state_ = State::Ended;
  enteredAtEnd_ = entered_;
  if (!hasUnsaved_ && std::exchange(holdsLeft_, false)) SetJournalAside();
  if (hasUnsaved_) {
    enteredAtEnd_ = journal_.entered;
    SetJournalAside();
  } else {
    KeepEndAside();
  }
  hasJournal_ = false;
  journal_ = {};
  left_.clear();
}

void FloorModel::SetJournalAside() {
  aside_.insert(aside_.begin(), journal_);
  ++setAside_;
  last_ = journal_.ordinals;
  lastRecords_ = journal_.records;
}

/// A later session needs the keys of the lines and the numbers of the figures, unless it would give the same
/// keys and no figure has reached the counting.
void FloorModel::KeepEndAside() {
  lastRecords_.clear();
  if (setAside_ == 0 && entered_.empty() && ArePlain()) return;
  ++setAside_;
  last_ = ordinals_;
}

/// The lines of the form, in their order of entry, are the stored ones.
void FloorModel::KeepOrdinals() {
  ordinals_.clear();
  for (const Line& line : lines_) ordinals_[line.key.barcode].push_back(line.key.ordinal);
}

bool FloorModel::ArePlain() const {
  return std::all_of(ordinals_.begin(), ordinals_.end(), [](const auto& of) {
    int expected = 0;
    return !of.second.empty() && std::all_of(of.second.begin(), of.second.end(),
                                             [&](int ordinal) { return ordinal == ++expected; });
  });
}

void FloorModel::BeginJournalAnew() {
  journal_.entered = entered_;
  journal_.ordinals = ordinals_;
  journal_.records.clear();
}

void FloorModel::Crash(std::size_t kept, bool isRestored) {
  state_ = State::Ended;
  if (isRestored) {
    lines_ = *draft_;
    areStored_ = false;
  } else {
    draft_.reset();
    ReadStored();
    begun_ = lines_;
  }
  journal_.records.resize(kept);
  std::erase_if(acknowledged_, [](const auto& figure) { return !figure.second.under.empty(); });
  for (const Line& line : lines_) {
    for (int count = 1; count <= kFloorCounts; ++count) DropSame(line, count);
  }
  isEdited_ = true;
  isWritten_ = areStored_;
  Begin();
}

}  // namespace koru::test
