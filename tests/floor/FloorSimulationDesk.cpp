// The simulated desk: each step is made on the form and in the model.

#include <algorithm>
#include <array>

#include "draft/DraftKeeper.h"
#include "tests/floor/FloorSimulation.h"

namespace koru::test {

std::vector<int> FloorSimulation::Order() {
  std::vector<int> order;
  for (int row = 1; row < Lines().Rows(); ++row) order.push_back(LineIn(row));
  return order;
}

void FloorSimulation::DeskEnters(int id, int count, const std::string& text) {
  ledger_.DeskEnters(count, model_.Find(id)->key, model_.Cell(id, count), text);
  model_.DeskEnters(id, count, text);
}

/// A row and a count; those with a figure are the ones that the desk corrects.
std::pair<int, int> FloorSimulation::AnyCell() {
  if (!model_.Left().empty() && Any(2) == 0) {
    const FloorModel::LeftCell& left = model_.Left().front();
    for (int row = 1; row < Lines().Rows(); ++row) {
      if (model_.Find(LineIn(row))->key == left.line) return {row, left.count};
    }
  }
  int row = 1 + Any(Lines().Rows() - 1);
  int count = 1 + Any(kFloorCounts);
  for (int again = 0; again < 5 && CellOf(row, FloorLines::ColumnOf(count)).empty(); ++again) {
    row = 1 + Any(Lines().Rows() - 1);
    count = 1 + Any(kFloorCounts);
  }
  return {row, count};
}

void FloorSimulation::TypeAtDesk() {
  if (!HasLines()) return;
  const auto [row, count] = AnyCell();
  const int id = LineIn(row);
  std::string text = Any(6) == 0 ? std::string() : std::to_string(Any(20));
  for (const FloorModel::LeftCell& left : model_.Left()) {
    const bool isHere = left.count == count && left.line == model_.Find(id)->key;
    if (isHere && Any(2) == 0) text = left.last;  // the desk enters what it is offered
  }
  const std::string before = model_.Cell(id, count);
  ASSERT_TRUE(Type(row, FloorLines::ColumnOf(count), text));
  DeskEnters(id, count, text);
  if (before == text) return;
  history_.resize(done_);
  history_.push_back({id, count, before, text});
  ++done_;
}

/// Takes the desk's last figure back, unless the floor has entered another one since.
void FloorSimulation::UndoAtDesk() {
  ASSERT_EQ(Desk().mnuUndo.UserClick(), done_ > 0);
  while (done_ > 0) {
    const DeskStep step = history_[--done_];
    if (model_.Find(step.id) != nullptr) {
      if (model_.Cell(step.id, step.count) == step.after) DeskEnters(step.id, step.count, step.before);
      return;
    }
    history_.erase(history_.begin() + static_cast<std::ptrdiff_t>(done_));
  }
}

void FloorSimulation::RedoAtDesk() {
  ASSERT_EQ(Desk().mnuRedo.UserClick(), done_ < history_.size());
  while (done_ < history_.size()) {
    const DeskStep step = history_[done_];
    if (model_.Find(step.id) != nullptr) {
      if (model_.Cell(step.id, step.count) == step.before) DeskEnters(step.id, step.count, step.after);
      ++done_;
      return;
    }
    history_.erase(history_.begin() + static_cast<std::ptrdiff_t>(done_));
  }
}

void FloorSimulation::SortAtDesk() {
  constexpr std::array kOrders = {RowOrder::Ascending, RowOrder::Descending, RowOrder::Entry};
  Lines().UserSort({Any(kLineColumns), kOrders.at(static_cast<std::size_t>(Any(3)))});
  model_.DeskSorts();
}

void FloorSimulation::DeleteAtDesk() {
  if (!HasLines()) return;
  const int row = 1 + Any(Lines().Rows() - 1);
  const int id = LineIn(row);
  Lines().UserMoveTo(row, LineColumn::FirstCounting);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Lines().UserDeleteRow());
  ledger_.DeskDeletes(model_.Find(id)->key);
  model_.DeskDeletes(id);
}

void FloorSimulation::AddAtDesk() {
  const std::string barcode = AnyBarcode();
  if (model_.Number(barcode) >= 3) return;
  std::vector<std::string> texts(kLineColumns);
  texts[LineColumn::RowNumber] = std::to_string(Lines().Rows());
  texts[LineColumn::Barcode] = barcode;
  texts[LineColumn::GoodName] = "كالا";
  texts[LineColumn::ScaleID] = "-1";
  texts[LineColumn::SystemCounting] = std::to_string(++lastLine_);
  Lines().AddRow(texts);
  model_.DeskAdds(lastLine_, barcode);
}

/// Where another station has written in between, the desk overwrites that, sees it instead of its own entry,
/// or does neither.
void FloorSimulation::SaveAtDesk() {
  if (!HasLines()) return;  // a counting without lines is not saved
  const std::vector<int> order = Order();
  const int choice = model_.IsChangedElsewhere() ? Any(3) : 0;
  if (choice > 0) messages.WillAnswer(Answer::No);
  if (model_.IsChangedElsewhere()) messages.WillAnswer(choice == 1 ? Answer::No : Answer::Yes);
  Desk().Timer1.Fire();
  ASSERT_TRUE(Desk().cmdTmpSave.UserClick());
  ASSERT_EQ(messages.UnusedAnswers(), 0U);
  if (choice == 1) return model_.DoesNotSave();
  HasReadOrSaved();
  if (choice == 0) {
    model_.Save(order);
    return ledger_.Save();
  }
  model_.ShowStored();
  ledger_.ShowStored();
}

/// The form has the lines that are stored.
void FloorSimulation::HasReadOrSaved() {
  ForgetHistory();
  isGuarded_ = true;
}

void FloorSimulation::ForgetHistory() {
  history_.clear();
  done_ = 0;
}

void FloorSimulation::FailToSave() {
  if (!HasLines()) return;
  Desk().Timer1.Fire();
  // A save that has failed in the middle of writing has forgotten what it could overwrite.
  const bool isInWrite = !model_.IsChangedElsewhere() && Any(2) == 0;
  failing.Plan().FailAt(isInWrite ? 2 : 1);
  Desk().cmdTmpSave.UserClick();
  failing.Plan().FailAt(0);
  isGuarded_ = isGuarded_ && !isInWrite;
  ASSERT_EQ(DeskMode(), DocumentMode::Editing);
}

void FloorSimulation::Edit() {
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  ASSERT_EQ(DeskMode(), DocumentMode::Editing);
  if (model_.IsChangedElsewhere()) ledger_.ShowStored();
  model_.Edit();
  BeginIfEnded();
}

/// A session that begins with a new journal has other codes: devices send with them what they have not sent.
void FloorSimulation::BeginIfEnded() {
  if (model_.SessionState() != FloorModel::State::Ended) return;
  session_.reset();
  Open();
  FollowSession();
  model_.Begin();
  for (SimulatedDevice& device : devices_) {
    device.seen.clear();
    device.revision = 0;
  }
  NoteCodes();
  ExpectKeys();
}

/// The ledger sees what the session decides and offers.
void FloorSimulation::FollowSession() {
  session_->Decided.Always([this](const JournalFigure& figure, const std::string& /*device*/) {
    if (figure.IsEntered()) ledger_.Enter(figure);
  });
  ledger_.Offer(session_->Left().Cells(), {journal_.Read()});
  const auto text = [this](const LineKey& line, int count) { return Count(line, count); };
  const bool isNew = ReadJournal(journal_.Read()).figures.empty() && !journal_.aside.empty();
  ledger_.TakeInPlace(isNew ? journal_.aside.front() : journal_.Read(), text, Desk().EntryIsWritten());
}

void FloorSimulation::Cancel() {
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  ASSERT_EQ(DeskMode(), DocumentMode::Viewing);
  model_.Cancel();
  ledger_.Cancel();
  ForgetHistory();
}

/// The host shows the counting again, which takes the place of what is on the form.
void FloorSimulation::ShowAgain() {
  ASSERT_TRUE(program_->View(20));
  Desk().Timer1.Fire();
  model_.ShowStored();
  ledger_.ShowStored();
  HasReadOrSaved();
}

void FloorSimulation::StopOrReopen() {
  if (model_.SessionState() == FloorModel::State::Running) {
    session_->Stop();
    model_.Stop();
  } else if (model_.SessionState() == FloorModel::State::Stopped) {
    ASSERT_TRUE(session_->Reopen());
    model_.Reopen();
  }
}

/// What an earlier program or a journal that was set aside has left is entered, or done without.
void FloorSimulation::DecideLeft() {
  if (model_.SessionState() != FloorModel::State::Running || model_.Left().empty()) return;
  if (Any(2) == 0) {
    ledger_.Replay(session_->Replay());
    model_.Replay();
    return;
  }
  ASSERT_TRUE(session_->Commit());
  ASSERT_TRUE(session_->ForgoLeft());
  model_.Forgo();
  ledger_.Forgo();
}

/// The desk works on before it decides.
void FloorSimulation::WorkWhileLeft() {
  switch (Any(5)) {
    case 0:
      return SaveAtDesk();
    case 1:
    case 2:
      return DecideLeft();
    default:
      return TypeAtDesk();
  }
}

void FloorSimulation::TakeBack() {
  if (model_.SessionState() != FloorModel::State::Running || !model_.Left().empty()) return;
  ASSERT_EQ(session_->TakeBackSetAside(), model_.TakeBackSetAside());
  ledger_.Offer(session_->Left().Cells(), journal_.aside);
  if (Any(3) > 0) DecideLeft();
}

void FloorSimulation::CrashDesk() {
  const bool isAgain = Any(4) == 0;
  for (int round = Any(3); round > 0 && model_.IsOpen(); --round) {
    ASSERT_NO_FATAL_FAILURE(LoseAnswers());
    ASSERT_NO_FATAL_FAILURE(PauseAtDesk());
  }
  for (int crash = 0; crash < (isAgain ? 2 : 1); ++crash) {
    if (Any(2) == 0) {
      ASSERT_TRUE(session_->Commit());
    } else if (model_.IsOpen()) {  // what was taken and not acknowledged is sent again
      const SimulatedDevice& device = AnyDevice();
      static_cast<void>(session_->Enter(device.count, device.id, Batch(device)));
    }
    const bool hasJournal = !journal_.Read().empty();
    Crash();
    const std::size_t kept = hasJournal ? ReadJournal(journal_.synced).figures.size() : 0;
    ASSERT_LE(kept, model_.Journalled());
    ASSERT_NO_FATAL_FAILURE(StartAfterCrash(kept));
    if (!hasJournal) NoteCodes();
    ASSERT_NO_FATAL_FAILURE(ExpectKeys());
    if (Any(2) > 0) DecideLeft();
  }
}

void FloorSimulation::StartAfterCrash(std::size_t kept) {
  const bool isRestored = model_.HasDraft() && Any(4) > 0;
  if (isRestored) {
    RestoreDraft();
  } else {
    store_.text.clear();
    StartAndOpen();
  }
  model_.Crash(kept, isRestored);
  ledger_.Crash(isRestored);
  FollowSession();
  HasReadOrSaved();
  if (isRestored) isGuarded_ = draftIsGuarded_;
}

void FloorSimulation::RestoreDraft() {
  StartProgram();
  ASSERT_TRUE(program_->FindDraft());
  ASSERT_TRUE(program_->RestoreDraft());
  ASSERT_EQ(DeskMode(), DocumentMode::Editing);
  Open();
}

/// While the desk does nothing, the form's timer ticks. After a second the draft holds what is on the form.
void FloorSimulation::PauseAtDesk() {
  const int ticks = Any(3) == 0 ? 1 : DraftKeeper::kPauseTicks;
  for (int tick = 0; tick < ticks; ++tick) Desk().Timer1.Fire();
  if (!model_.IsEdited() || ticks < DraftKeeper::kPauseTicks) return;
  ASSERT_TRUE(model_.DraftIsCurrent());
}

void FloorSimulation::NoteCodes() {
  for (int count = 1; count <= kFloorCounts; ++count)
    codes_.at(static_cast<std::size_t>(count - 1)) = session_->Code(count);
}

void FloorSimulation::RenewCode() {
  if (model_.SessionState() != FloorModel::State::Running) return;
  const int count = 1 + Any(kFloorCounts);
  std::string& code = codes_.at(static_cast<std::size_t>(count - 1));
  session_->RenewCode(count);
  ASSERT_EQ(session_->CountOf(code), std::nullopt);
  code = session_->Code(count);
}

void FloorSimulation::OtherStationWrites() {
  if (model_.IsChangedElsewhere() || !isGuarded_) return;
  auto lines = model_.Stored();
  const std::size_t at = static_cast<std::size_t>(Any(static_cast<int>(lines.size())));
  const int kind = Any(4);
  const auto number = [&lines](const std::string& barcode) {
    return std::count_if(lines.begin(), lines.end(),
                         [&](const FloorModel::StoredLine& line) { return line.barcode == barcode; });
  };
  const std::string barcode = AnyBarcode();
  // Which of several lines of a barcode another station has removed or added, nobody can know afterwards.
  if (kind == 0 && lines.size() > 1 && number(lines[at].barcode) == 1) {
    database.Execute("delete from tblInventoryCountingDetail where CountingID=20 and SystemCounting=" +
                     std::to_string(lines[at].id));
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
  } else if (kind == 1 && number(barcode) == 0) {
    lines.push_back({++lastLine_, barcode, {}});
    database.Execute(
        "insert into tblInventoryCountingDetail "
        "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue) "
        "values (20,'" +
        barcode + "'," + std::to_string(lastLine_) + ",1," + std::to_string(lastLine_) + ",3)");
  } else {
    const std::string text = std::to_string(2000 + Any(1000));
    lines[at].counts[1] = text;
    database.Execute("update tblInventoryCountingDetail set SecondCounting=" + text +
                     " where CountingID=20 and SystemCounting=" + std::to_string(lines[at].id));
  }
  model_.OtherStationWrites(std::move(lines));
}

}  // namespace koru::test
