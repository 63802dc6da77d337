// The figures that an earlier session has left: FloorSession's part that offers, replays and forgoes them.

#include <algorithm>
#include <utility>

#include "floor/FloorSession.h"
#include "platform/text/Errors.h"

namespace koru {
namespace {

/// The contents of a journal of that counting; nothing when the text is none.
std::optional<JournalContents> ContentsOf(std::string_view text, std::int32_t countingID) {
  try {
    JournalContents contents = ReadJournal(text);
    if (contents.start.countingID == countingID) return contents;
  } catch (const InputError&) {  // damaged
  }
  return {};
}

}  // namespace

/// What has reached the counting is in the journal that was set aside last. Figures that were set aside find
/// their lines again when these have the keys that they had.
void FloorSession::TakeFromSetAside() {
  bool isLast = true;
  for (const std::string& text : around_.journal.ReadSetAside()) {
    auto contents = ContentsOf(text, countingID_);
    if (!contents) continue;
    if (std::exchange(isLast, false)) members_.TakeEntered(contents->start);
    if (contents->figures.empty()) continue;
    lines_.SetStored(std::move(contents->start.ordinals));
    return;
  }
}

/// A save holds all figures of the session. A device whose answer was lost still has some of them, and can
/// bring them to a later session of the counting: their numbers are set aside.
void FloorSession::RemoveJournal() {
  if (!members_.HaveEntered()) return keeper_.Remove();
  keeper_.BeginAnew();
  static_cast<void>(keeper_.SetAside());
}

/// A journal of another counting, or without its beginning, is no journal of this session.
void FloorSession::ReadLeft(std::string_view text) {
  const auto contents = ContentsOf(text, countingID_);
  if (!contents) {
    around_.journal.SetAside();
    around_.journal.Begin(JournalText(StartNow()));
    return;
  }
  // What is appended must not follow half a line.
  if (contents->whole < text.size()) around_.journal.Begin(text.substr(0, contents->whole));
  Continue(*contents);
}

void FloorSession::Continue(const JournalContents& contents) {
  codes_ = AccessCodes(around_.random, contents.start.codes);
  members_ = FloorMembers(contents.start);
  unknown_ = contents.start.unknown;
  leftStart_ = contents.start;
  lines_.SetStored(contents.start.ordinals);
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
  const LeftFigures left = std::exchange(left_, {});
  std::vector<JournalFigure> entered;
  for (const LeftFigures::Cell& cell : left.Cells()) {
    const int row = lines_.RowOf(cell.line);
    if (row == 0) {
      replayed.gone.push_back(cell);
      continue;
    }
    const std::string now(controls_.flexDetail.TextMatrix(row, FloorLines::ColumnOf(cell.count)));
    if (!cell.MayReplace(now)) {
      replayed.replaced.push_back(cell);
      continue;
    }
    const Entered outcome =
        EnterCell(row, cell.count, cell.text, members_.Of(cell.count, cell.device).ShownName());
    if (outcome.stored) {
      entered.push_back(cell.Entered(now, outcome.message));
    } else {
      replayed.refused.push_back(cell);
    }
  }
  replayed.entered = entered.size();
  const auto journal = std::exchange(leftJournal_, {});
  if (std::exchange(leftIsTakenBack_, false)) {
    Take(FiguresInPlace(journal, controls_.flexDetail, lines_));
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

bool FloorSession::SetLeftAside() {
  if (!keeper_.SetAside()) return false;
  holdsLeft_ = false;
  return true;
}

bool FloorSession::ForgoLeft() {
  if (left_.Cells().empty()) return true;
  const bool isHeld = holdsLeft_ && !leftIsTakenBack_;  // otherwise it has been set aside already
  if (isHeld && !SetLeftAside()) return false;
  left_ = {};
  leftIsTakenBack_ = false;
  const auto journal = std::exchange(leftJournal_, {});
  if (isHeld) {
    // The figures that nobody wants have not reached the counting: a device that still has one sends it anew.
    members_ = FloorMembers(leftStart_);
    hasUnsaved_ = false;
    keeper_.BeginAnew();
    Take(FiguresInPlace(journal, controls_.flexDetail, lines_));
  }
  Changed.Raise();
  return true;
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
    leftIsTakenBack_ = true;
    if (left_.CanBeEntered(grid, lines_)) break;
  }
  if (left_.Cells().empty()) return false;
  Changed.Raise();
  return true;
}

}  // namespace koru
