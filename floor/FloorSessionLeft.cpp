// The figures that an earlier session has left: FloorSession's part that offers, replays and forgoes them.

#include <algorithm>
#include <set>
#include <utility>

#include "floor/FloorSession.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

/// The contents of a journal; nothing when the text is none.
std::optional<JournalContents> ContentsOf(std::string_view text) {
  try {
    return ReadJournal(text);
  } catch (const InputError&) {  // damaged
    return {};
  }
}

/// The contents of a journal of that counting.
std::optional<JournalContents> ContentsOf(std::string_view text, std::int32_t countingID) {
  auto contents = ContentsOf(text);
  return contents && contents->start.countingID == countingID ? std::move(contents) : std::nullopt;
}

}  // namespace

/// What has reached the counting, and the keys of its lines, are in the journal that was set aside last.
/// Returns its figures, some of which may be on the form, too: a Cancel leaves them there, and a save stores
/// them, which cannot begin the journal anew while the disk is full.
std::vector<JournalFigure> FloorSession::TakeFromSetAside() {
  for (const std::string& text : around_.journal.ReadSetAside()) {
    auto contents = ContentsOf(text, countingID_);
    if (!contents) continue;
    members_.TakeEntered(contents->start);
    ContinueLines(*contents);
    return std::move(contents->figures);
  }
  return {};
}

void FloorSession::ContinueLines(const JournalContents& earlier) {
  std::set<std::string> several;
  for (const JournalFigure& figure : earlier.figures) {
    const bool hasLine = figure.answer.state != FigureState::Gone;
    if (hasLine && figure.figure.line.ordinal > 1) several.insert(figure.figure.line.barcode);
  }
  lines_.Continue(earlier.start.ordinals, std::move(several));
}

/// Figures of an earlier session that are in their cells are not entered again. Unless the database has them,
/// they are this session's own: after a crash they are offered, and Cancel asks.
void FloorSession::BeginJournal(std::vector<JournalFigure> earlier) {
  const bool areStored = around_.entryIsWritten();
  lines_.Begin(areStored);
  JournalContents begun;
  begun.figures = ExtractInPlace(earlier, controls_.flexDetail, lines_);
  if (areStored) members_.TakeEntered(std::exchange(begun.figures, {}));
  begun.start = StartNow();
  around_.journal.Begin(JournalText(begun));
  for (const JournalFigure& figure : begun.figures) members_.Take(figure);
  hasUnsaved_ = !begun.figures.empty();
}

/// A save holds all figures of the session. A device whose answer was lost, or that has figures which it has
/// not sent, can bring them to a later session of the counting: the numbers of the figures that have reached
/// it, and the keys of its lines, are set aside.
void FloorSession::RemoveJournal() {
  const bool isNeeded =
      members_.HaveEntered() || !lines_.ArePlain() || !around_.journal.ReadSetAside().empty();
  if (!isNeeded) return keeper_.Remove();
  keeper_.BeginAnew();
  static_cast<void>(keeper_.SetAside());
}

/// Sets the journal aside, which has that text, unless the disk has no room for the next one: without a
/// journal, the next Edit would offer nothing and say nothing of the damage.
std::string FloorSession::SetTextAside(std::string_view text) {
  around_.journal.Begin(text);
  return around_.journal.SetAside();
}

/// A journal of another counting, or without its beginning, is no journal of this session. Which keys its
/// lines have had is not known then.
void FloorSession::ReadLeft(std::string_view text) {
  auto contents = ContentsOf(text);
  if (!contents || contents->start.countingID != countingID_) {
    using Kind = JournalDamage::Kind;
    auto earlier = TakeFromSetAside();
    lines_.Continue({}, {});
    damage_ = {contents ? Kind::OtherCounting : Kind::Unreadable, 0, SetTextAside(text)};
    return BeginJournal(std::move(earlier));
  }
  if (contents->damaged > 0 && SetDamagedAside(text, *contents)) {
    around_.journal.Begin(JournalText(*contents));
  } else if (contents->whole < text.size()) {  // what is appended must not follow half a line
    around_.journal.Begin(text.substr(0, contents->whole));
  }
  Continue(std::move(*contents));
}

/// A save begins the journal anew, and the damaged lines may be of use to somebody. False when it stays where
/// it is.
bool FloorSession::SetDamagedAside(std::string_view text, const JournalContents& contents) {
  damage_ = {JournalDamage::Kind::Lines, contents.damaged, {}};
  try {
    damage_->file = SetTextAside(text);
    return true;
  } catch (const InputError&) {
    return false;
  }
}

void FloorSession::Continue(JournalContents contents) {
  codes_ = AccessCodes(around_.random, contents.start.codes);
  members_ = FloorMembers(contents.start);
  unknown_ = contents.start.unknown;
  leftStart_ = contents.start;
  ContinueLines(contents);
  lines_.Begin(around_.entryIsWritten());
  if (lines_.Stored() != contents.start.ordinals) {
    contents.start.ordinals = lines_.Stored();
    around_.journal.Begin(JournalText(contents));
  }
  for (const JournalFigure& figure : contents.figures) {
    members_.Take(figure);
    hasUnsaved_ = hasUnsaved_ || figure.IsEntered();
  }
  left_ = LeftFigures(contents.figures, controls_.flexDetail, lines_);
  leftJournal_ = contents.figures;
  holdsLeft_ = !left_.Cells().empty();
}

ReplayedFigures FloorSession::Replay() {
  ReplayedFigures replayed;
  Follow(false);
  if (end_ != End::None || !IsEdited() || IsCommandAtWork()) return replayed;
  Flush();
  const LeftFigures left = std::exchange(left_, {});
  std::vector<JournalFigure> entered;
  for (const LeftFigures::Cell& cell : left.Cells()) {
    const int row = lines_.RowOf(cell.line);
    if (row == 0) {
      replayed.gone.push_back({cell, {}, {}});
      replayed.hasBarcodeOfGone = replayed.hasBarcodeOfGone || lines_.HasBarcode(cell.line.barcode);
      continue;
    }
    const std::string now(controls_.flexDetail.TextMatrix(row, FloorLines::ColumnOf(cell.count)));
    if (!cell.MayReplace(now)) {
      replayed.replaced.push_back({cell, now, {}});
      continue;
    }
    const Entered outcome =
        EnterCell(row, cell.count, cell.text, members_.ShownName(cell.count, cell.device));
    if (outcome.stored) {
      entered.push_back(cell.Entered(now, outcome.message));
    } else {
      replayed.refused.push_back({cell, now, outcome.message});
    }
  }
  replayed.entered = entered.size();
  auto journal = std::exchange(leftJournal_, {});
  if (std::exchange(leftIsAside_, false)) {
    Take(ExtractInPlace(journal, controls_.flexDetail, lines_));
  } else if (replayed.entered == left.Cells().size()) {
    holdsLeft_ = false;
  }
  Take(entered);
  Changed.Raise();
  return replayed;
}

/// Makes figures that are in their cells this session's own: a device that sends one again is only answered,
/// and the next session replays them unless a save comes first.
void FloorSession::Take(const std::vector<JournalFigure>& figures) {
  for (const JournalFigure& figure : figures) {
    members_.Take(figure);
    keeper_.Add(JournalLine(figure));
  }
  hasUnsaved_ = hasUnsaved_ || !figures.empty();
  static_cast<void>(Commit());
}

/// Left figures that are not in the counting are set aside by its save; false while that fails. Those that
/// the desk has not decided about have not reached the counting: a device that still has one sends it anew,
/// and the desk may still take them. A later save holds those that the desk has typed itself meanwhile.
bool FloorSession::LeaveOutLeft() {
  const bool areUndecided = SaveSetsLeftAside();
  if (holdsLeft_ && !SetLeftAside()) return false;
  if (left_.Cells().empty()) return true;
  leftIsAside_ = true;
  const auto saved = ExtractInPlace(leftJournal_, controls_.flexDetail, lines_);
  if (areUndecided) ForgetLeft(left_, leftJournal_);
  for (const JournalFigure& figure : saved) members_.Take(figure);
  return true;
}

bool FloorSession::SetLeftAside() {
  if (!keeper_.SetAside()) return false;
  holdsLeft_ = false;
  return true;
}

bool FloorSession::ForgoLeft() {
  if (left_.Cells().empty()) return true;
  Flush();
  const bool isHeld = SaveSetsLeftAside();
  if (isHeld && !SetLeftAside()) return false;
  const LeftFigures left = std::exchange(left_, {});
  auto journal = std::exchange(leftJournal_, {});
  leftIsAside_ = false;
  if (!IsFinished()) {
    const auto inPlace = ExtractInPlace(journal, controls_.flexDetail, lines_);
    if (isHeld) {
      ForgetLeft(left, journal);
      hasUnsaved_ = false;
      keeper_.BeginAnew();
    }
    Take(inPlace);
  }
  Changed.Raise();
  return true;
}

/// Left figures have not reached the counting: a device that still has one sends it anew. They remain in the
/// journal, from which those that cells have come from were taken.
void FloorSession::ForgetLeft(const LeftFigures& left, std::vector<JournalFigure>& journal) {
  members_.ForgetFigures(leftStart_);
  for (const JournalFigure& other : left.ExtractOthers(journal, controls_.flexDetail, lines_))
    members_.Take(other);
}

bool FloorSession::TakeBackSetAside() {
  Follow(false);
  if (end_ != End::None || !left_.Cells().empty()) return false;
  const Grid& grid = controls_.flexDetail;
  static_cast<void>(EndCommit());
  for (const std::string& text : around_.journal.ReadSetAside()) {
    auto contents = ContentsOf(text, countingID_);
    if (!contents) continue;
    LeftFigures lacking(contents->figures, grid, lines_);
    const bool isBetter = left_.Cells().empty() || lacking.CanBeEntered(grid, lines_);
    if (lacking.Cells().empty() || !isBetter) continue;
    left_ = std::move(lacking);
    leftJournal_ = std::move(contents->figures);
    leftIsAside_ = true;
    if (left_.CanBeEntered(grid, lines_)) break;
  }
  if (left_.Cells().empty()) return false;
  Changed.Raise();
  return true;
}

}  // namespace koru
