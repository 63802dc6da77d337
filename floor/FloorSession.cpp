#include "floor/FloorSession.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "floor/TypedFigure.h"
#include "platform/text/Errors.h"
#include "platform/text/Numbers.h"
#include "platform/text/Text.h"
#include "platform/text/TypedNumber.h"
#include "services/CapturedMessages.h"

namespace koru {
namespace {

constexpr std::size_t kMaxIDLength = 64;

/// Revisions of a later session are higher, so that a device that was away notices that it is another one.
constexpr std::int64_t kRevisionsPerSecond = 1000;

/// RAII: until destruction, figures that change are those of the floor.
class Entering {
 public:
  explicit Entering(bool& entering) : entering_(entering) { entering_ = true; }
  Entering(const Entering&) = delete;
  Entering& operator=(const Entering&) = delete;
  ~Entering() { entering_ = false; }

 private:
  bool& entering_;
};

}  // namespace

FloorSession::FloorSession(InvCountingControls& controls, const SharedState& shared,
                           FloorSurroundings surroundings)
    : controls_(controls),
      shared_(shared),
      around_(std::move(surroundings)),
      countingID_(static_cast<std::int32_t>(controls.CountingID())),
      codes_(around_.random),
      lines_(controls.flexDetail, around_.now().time_since_epoch().count() * kRevisionsPerSecond,
             around_.random),
      keeper_(around_.journal, [this] { return JournalText(StartNow()); }) {
  if (!MayBegin(controls, shared)) {
    throw InputError(
        "شمارش با گوشي براي شمارشي است كه ذخيره شده و در حال اصلاح است. نخست ثبت موقت و سپس اصلاح را بزنيد.");
  }
  const std::string text = around_.journal.Read();
  if (text.empty()) {
    BeginJournal(TakeFromSetAside());
  } else {
    ReadLeft(text);
  }
  keeper_.Failed.Always([this](const std::string& sentence) { JournalFailed.Raise(sentence); });
  subscriptions_.push_back(lines_.FigureChanged.Subscribe(
      [this](const LineKey& line, int count, const std::string& before, const std::string& text) {
        NoteDesk(line, count, before, text);
      }));
  subscriptions_.push_back(
      lines_.StoredDrawn.Subscribe([this](const std::string& barcode, const std::vector<int>& ordinals) {
        keeper_.Add(JournalLine(barcode, ordinals));
      }));
  subscriptions_.push_back(lines_.Changed.Subscribe([this] { Changed.Raise(); }));
  subscriptions_.push_back(controls.Timer1.Tick.Subscribe([this] { Follow(true); }));
  // Before a save has stored figures, the disk has them as applied: a device may send them again.
  subscriptions_.push_back(controls.pgbStatus.StateChanged.Subscribe([this] {
    if (controls_.pgbStatus.Visible()) static_cast<void>(EndCommit());
  }));
  subscriptions_.push_back(controls.flexDetail.StateChanged.Subscribe([this] { Changed.Raise(); }));
  subscriptions_.push_back(controls.form.Unloaded.Subscribe([this] { Finish(End::Unloaded); }));
}

FloorSession::~FloorSession() {
  if (!IsFinished()) Flush();
}

bool FloorSession::IsEdited() const {
  return MayBegin(controls_, shared_) && controls_.CountingID() == countingID_;
}

bool FloorSession::IsOpen() {
  Follow(false);
  return end_ == End::None && left_.Cells().empty() && IsEdited() && !IsCommandAtWork();
}

bool FloorSession::IsCommandAtWork() const {
  return shared_.services.screen.CurrentCursor() == Cursor::Hourglass || controls_.pgbStatus.Visible();
}

void FloorSession::Stop() {
  if (end_ != End::None) return;
  end_ = End::Stopped;
  Changed.Raise();
}

bool FloorSession::Reopen() {
  Follow(false);
  if (end_ == End::None) return true;
  if (end_ != End::Stopped || IsFinished()) return false;
  end_ = End::None;
  Changed.Raise();
  return true;
}

void FloorSession::RenewCode(int count) {
  codes_.Renew(count);
  keeper_.Add(JournalLine(count, codes_.Of(count)));
  static_cast<void>(Commit());
}

std::optional<int> FloorSession::CountOf(std::string_view code) {
  Follow(false);
  return end_ == End::None ? codes_.CountOf(code) : std::nullopt;
}

bool FloorSession::IsDeviceID(std::string_view text) {
  return !text.empty() && text.size() <= kMaxIDLength && IsBase64Url(text);
}

FloorMembers::Member& FloorSession::MemberInContact(int count, const std::string& device) {
  if (count < 1 || count > kFloorCounts) throw std::invalid_argument("a count is 1 to 3");
  if (!IsDeviceID(device)) throw std::invalid_argument("not the id of a device");
  FloorMembers::Member& member = members_.Of(count, device);
  member.device.lastContact = around_.now();
  return member;
}

void FloorSession::Hello(int count, const std::string& device, std::string_view name) {
  FloorMembers::Member& member = MemberInContact(count, device);
  const std::string_view kept = Utf16Prefix(Trim(name), kMaxNameLength);
  if (member.device.name == kept) return;
  member.device.name = kept;
  keeper_.Add(JournalLine(JournalStart::Device{count, device, member.device.name, {}}));
}

void FloorSession::NoteUnknown(int count, const std::string& device, const std::string& barcode) {
  MemberInContact(count, device);
  Follow(false);
  if (end_ != End::None) return;
  const bool isKnown = std::any_of(unknown_.begin(), unknown_.end(), [&](const UnknownBarcode& known) {
    return known.count == count && known.barcode == barcode;
  });
  if (isKnown || lines_.HasBarcode(barcode)) return;
  unknown_.push_back({barcode, count, device});
  keeper_.Add(JournalLine(unknown_.back()));
}

std::vector<FloorLine> FloorSession::Lines(int count) {
  Follow(false);
  return end_ == End::None ? lines_.All(count) : std::vector<FloorLine>();
}

std::vector<UnknownBarcode> FloorSession::Unknown() {
  Follow(false);
  if (end_ != End::None) return unknown_;
  std::erase_if(unknown_, [this](const UnknownBarcode& known) { return lines_.HasBarcode(known.barcode); });
  return unknown_;
}

FloorChanges FloorSession::ChangesSince(std::int64_t revision, int count) {
  const bool open = IsOpen();
  FloorChanges changes;
  changes.revision = revision;
  if (end_ == End::None) changes = lines_.Since(revision, count);
  changes.open = open;
  return changes;
}

/// The mode is looked at whenever something is asked. Whether an entry has been saved, registered or
/// cancelled is known when the form's timer ticks, which it does at the end of each of these commands; in
/// between a save may still fail. With each tick, what the desk has entered begins to reach the disk, even if
/// no device asks any more.
void FloorSession::Follow(bool settled) {
  const bool isFollowed = end_ == End::None || end_ == End::Stopped;
  if (!isFollowed) return;
  const bool isSame = controls_.CountingID() == countingID_ &&
                      (shared_.DocMode == DocumentMode::Editing || shared_.DocMode == DocumentMode::Viewing);
  if (!isSame) {
    Finish(End::OtherCounting);
  } else if (shared_.DocMode == DocumentMode::Editing) {
    wasEdited_ = true;
    if (!settled) return;
    static_cast<void>(lines_.Revision());
    BeginCommit();
  } else if (settled && wasEdited_) {
    wasEdited_ = false;
    if (!around_.entryIsWritten()) return Finish(End::Cancelled);
    hasUnsaved_ = false;
    lines_.KeepStored();
    const bool isWithoutLeft = LeaveOutLeft();
    if (controls_.IsFinal()) return Finish(End::Registered);
    if (end_ == End::Stopped) return Finish(End::Stopped);
    if (isWithoutLeft) keeper_.BeginAnew();  // the database holds its figures
  }
}

/// Ends the session. The end by which the desk has stopped it remains its end.
void FloorSession::Finish(End end) {
  if (end_ == End::None) {
    end_ = end;
  } else if (end_ != End::Stopped || IsFinished()) {
    return;
  }
  Flush();
  subscriptions_.clear();
  SettleJournal(end);
  Changed.Raise();
}

void FloorSession::SettleJournal(End end) {
  if (end == End::Unloaded && (hasUnsaved_ || holdsLeft_)) return;  // the next session offers its figures
  if (hasUnsaved_ || SaveSetsLeftAside()) return static_cast<void>(keeper_.SetAside());
  if (!holdsLeft_ || SetLeftAside()) RemoveJournal();
}

/// What the desk has entered last reaches the disk before the session ends.
void FloorSession::Flush() {
  if (IsEdited()) static_cast<void>(lines_.Revision());
  static_cast<void>(Commit());
}

JournalStart FloorSession::StartNow() {
  JournalStart start;
  start.countingID = countingID_;
  for (int count = 1; count <= kFloorCounts; ++count) {
    start.codes.at(static_cast<std::size_t>(count - 1)) = codes_.Of(count);
  }
  start.devices = members_.ForJournal();
  start.unknown = unknown_;
  start.ordinals = lines_.Stored();
  return start;
}

std::vector<FloorAnswer> FloorSession::Enter(int count, const std::string& device,
                                             std::span<const FloorFigure> figures) {
  FloorMembers::Member& member = MemberInContact(count, device);
  std::vector<FloorAnswer> answers;
  answers.reserve(figures.size());
  for (const FloorFigure& figure : figures) answers.push_back(Decide(member, figure));
  return answers;
}

/// A figure that was decided before is not decided again, whatever it says now.
FloorAnswer FloorSession::Decide(FloorMembers::Member& member, const FloorFigure& figure) {
  const auto kept = member.answers.find(figure.sequence);
  if (kept != member.answers.end()) return kept->second;
  if (!IsOpen()) return {figure.sequence, FigureState::Paused, {}, {}, {}};
  const int row = lines_.RowOf(figure.line);
  JournalFigure record;
  if (row != 0)
    record.before = controls_.flexDetail.TextMatrix(row, FloorLines::ColumnOf(member.device.count));
  if (member.entered.Contains(figure.sequence)) {  // before a save that was not followed by its answer
    return {figure.sequence, FigureState::Stored, record.before, {}, {}};
  }
  FloorAnswer answer{figure.sequence, FigureState::Gone, {}, {}, {}};
  if (row != 0) answer = Apply(member, figure, row, record.before);
  if (answer.state == FigureState::Paused) return answer;
  member.Keep(answer);
  record.count = member.device.count;
  record.device = member.device.id;
  record.figure = figure;
  record.answer = answer;
  record.time = member.device.lastContact;
  hasUnsaved_ = hasUnsaved_ || record.IsEntered();
  keeper_.Add(JournalLine(record));
  Decided.Raise(record, member.device.ShownName());
  return answer;
}

/// Tests what the form would not, and hands the figure to it.
FloorAnswer FloorSession::Apply(FloorMembers::Member& member, const FloorFigure& figure, int row,
                                const std::string& before) {
  const int count = member.device.count;
  FloorAnswer answer{figure.sequence, FigureState::Refused, before, {}, {}};
  const bool adds = figure.operation == FloorFigure::Operation::Add;
  if (!IsFigure(figure.text, !adds)) {
    answer.message = "عدد نيست.";
    return answer;
  }
  std::string text = TypedNumberText(figure.text);
  if (adds) {
    text = NumberText(Val(before) + Val(text));
  } else if (!AreSameFigure(before, figure.base)) {
    answer.state = AreSameFigure(before, text) ? FigureState::Stored : FigureState::Conflict;
    if (answer.state == FigureState::Conflict) answer.by = lines_.EnteredBy(row, count);
    return answer;
  }
  const Entered entered = EnterCell(row, count, text, member.device.ShownName());
  answer.message = entered.message;
  if (entered.stored) {
    answer.state = entered.message.empty() ? FigureState::Stored : FigureState::Warned;
    answer.text = controls_.flexDetail.TextMatrix(lines_.RowOf(figure.line), FloorLines::ColumnOf(count));
  } else if (entered.message.empty()) {
    answer.state = FigureState::Paused;  // the grid is locked
  }
  return answer;
}

FloorSession::Entered FloorSession::EnterCell(int row, int count, const std::string& text,
                                              const std::string& device) {
  Grid& grid = controls_.flexDetail;
  const int col = FloorLines::ColumnOf(count);
  const std::string before(grid.TextMatrix(row, col));
  Entered entered;
  {
    const Entering entering(isEntering_);
    const CapturedMessages captured(shared_.services.components);
    entered.stored = grid.UserEditElsewhere(row, col, text);
    entered.message = captured.Text();
    if (!entered.stored) return entered;
    lines_.SetEnteredBy(row, count, device);
  }
  Arrived.Raise({row, col, before, std::string(grid.TextMatrix(row, col)), device});
  return entered;
}

/// The desk's own figure: the journal shows later that it came after those of the floor.
void FloorSession::NoteDesk(const LineKey& line, int count, const std::string& before,
                            const std::string& text) {
  if (isEntering_ || !IsEdited()) return;
  JournalFigure record;
  record.count = count;
  record.figure = {0, line, FloorFigure::Operation::Set, text, {}};
  record.answer = {0, FigureState::Stored, text, {}, {}};
  record.before = before;
  record.time = around_.now();
  keeper_.Add(JournalLine(record));
  if (!left_.Cells().empty()) leftJournal_.push_back(record);
}

}  // namespace koru
