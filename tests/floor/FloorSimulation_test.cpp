// Sessions by chance: three devices over a network that loses, doubles and reorders, and a desk that types,
// sorts, deletes, adds, saves and fails to save, with crashes of either side. A plain model says what the
// grid holds.

#include <algorithm>
#include <deque>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "platform/text/Numbers.h"
#include "tests/floor/FloorWorld.h"

namespace koru::test {
namespace {

constexpr unsigned kSessions = 1000;
constexpr int kSteps = 60;
const std::vector<std::string> kGoods = {"G1", "G2", "G3"};

using Key = std::pair<std::string, int>;
using Counts = std::array<std::string, kFloorCounts>;

LineKey LineOf(const Key& key) { return {key.first, key.second}; }

/// What a count of the model has gone through since the last save.
struct Trail {
  std::set<std::string> known;
  std::string last;
  bool ofFloor = false;
};

/// The counting and its journal as they must be, without a form.
struct Model {
  std::map<Key, Counts> lines;
  std::map<Key, Counts> saved;
  std::map<std::pair<Key, int>, Trail> trails;
  std::map<std::pair<int, std::int64_t>, FloorAnswer> answered;
  std::set<std::pair<int, std::int64_t>> answeredBeforeSave;  // what a new program does not know any more
  std::set<std::pair<int, std::int64_t>> applied;

  void Note(const Key& key, int count, const std::string& text, bool ofFloor) {
    std::string& cell = lines.at(key).at(static_cast<std::size_t>(count - 1));
    if (cell == text && !ofFloor) return;
    Trail& trail = trails[{key, count}];
    trail.known.insert(cell);
    trail.known.insert(text);
    trail.last = text;
    trail.ofFloor = trail.ofFloor || ofFloor;
    cell = text;
  }

  FloorAnswer Take(int count, const FloorFigure& figure) {
    const auto known = answered.find({count, figure.sequence});
    if (known != answered.end()) return known->second;
    const Key key{figure.line.barcode, figure.line.ordinal};
    const auto line = lines.find(key);
    FloorAnswer answer{figure.sequence, FigureState::Gone, {}, {}, {}};
    if (applied.contains({count, figure.sequence})) {  // its answer has been forgotten
      answer.state = FigureState::Stored;
      if (line != lines.end()) answer.text = line->second.at(static_cast<std::size_t>(count - 1));
      return answer;
    }
    if (line != lines.end()) {
      const std::string cell = line->second.at(static_cast<std::size_t>(count - 1));
      const bool adds = figure.operation == FloorFigure::Operation::Add;
      const double number = Val(figure.text) + (adds ? Val(cell) : 0);
      answer = {figure.sequence, FigureState::Stored, cell, {}, {}};
      if (!adds && cell != figure.base) {
        if (cell != figure.text) {
          answer.state = FigureState::Conflict;
        } else {
          Note(key, count, cell, true);  // acknowledged, and so not to be lost either
        }
      } else if (number < 0) {
        answer.state = FigureState::Refused;
      } else {
        answer.text = NumberText(number);
        Note(key, count, answer.text, true);
      }
      if (answer.state == FigureState::Stored) applied.insert({count, figure.sequence});
    }
    answered[{count, figure.sequence}] = answer;
    return answer;
  }

  void Save() {
    saved = lines;
    trails.clear();
    for (const auto& [figure, answer] : answered) answeredBeforeSave.insert(figure);
  }

  /// The program has ended and was started anew, and the figures of the floor were replayed.
  void Restart() {
    lines = saved;
    for (const auto& figure : answeredBeforeSave) answered.erase(figure);
    answeredBeforeSave.clear();
    for (const auto& [cell, trail] : trails) {
      const auto line = lines.find(cell.first);
      if (!trail.ofFloor || line == lines.end()) continue;
      std::string& text = line->second.at(static_cast<std::size_t>(cell.second - 1));
      if (trail.known.contains(text)) text = trail.last;
    }
  }
};

/// A device with its queue, which survives its crashes, and what it believes the counts to be.
struct Handheld {
  int count = 1;
  std::int64_t lastSequence = 0;
  std::deque<FloorFigure> queue;
  std::map<Key, std::string> seen;
  std::int64_t revision = 0;
};

class FloorSimulation : public FloorWorld {
 protected:
  FloorSimulation() : FloorWorld(TestDatabase::Kind::File) {}

  [[nodiscard]] int Any(int below) { return static_cast<int>(chance_() % static_cast<unsigned>(below)); }
  void Session(unsigned seed);
  void Step();
  void EnterOnDevice();
  void Deliver();
  void ReadChanges(Handheld& device);
  void TypeAtDesk();
  void DeleteAtDesk();
  void AddAtDesk();
  void SaveAtDesk();
  void FailToSave();
  void CrashDesk();
  void ExpectModel();
  void ExpectSameAsTyped();
  [[nodiscard]] Key KeyAt(int row);

  std::mt19937 chance_;
  Model model_;
  std::vector<Handheld> devices_;
};

Key FloorSimulation::KeyAt(int row) {
  const FloorLine line = session_->Lines(1).at(static_cast<std::size_t>(row - 1));
  return {line.key.barcode, line.key.ordinal};
}

void FloorSimulation::EnterOnDevice() {
  Handheld& device = devices_[static_cast<std::size_t>(Any(kFloorCounts))];
  const Key key{kGoods[static_cast<std::size_t>(Any(3))], 1 + Any(3)};
  const bool adds = Any(3) == 0;
  const std::string text = std::to_string(Any(20) - (Any(8) == 0 ? 20 : 0));
  std::string base = device.seen[key];
  for (const FloorFigure& waiting : device.queue) {
    const bool isSame = waiting.line == LineOf(key) && waiting.operation == FloorFigure::Operation::Set;
    if (isSame) base = waiting.text;  // what the counter sees: the figure that has not been sent yet
  }
  device.queue.push_back({++device.lastSequence, LineOf(key),
                          adds ? FloorFigure::Operation::Add : FloorFigure::Operation::Set, text, base});
}

void FloorSimulation::Deliver() {
  Handheld& device = devices_[static_cast<std::size_t>(Any(kFloorCounts))];
  std::vector<FloorFigure> batch;
  for (const FloorFigure& figure : device.queue) {
    const int copies = Any(10) == 0 ? 0 : Any(6) == 0 ? 2 : 1;
    for (int copy = 0; copy < copies; ++copy) batch.push_back(figure);
  }
  if (Any(5) == 0) std::shuffle(batch.begin(), batch.end(), chance_);
  const auto answers = session_->Enter(device.count, Device(device.count), batch);
  std::vector<FloorAnswer> expected;
  for (const FloorFigure& figure : batch) expected.push_back(model_.Take(device.count, figure));
  ASSERT_EQ(answers.size(), expected.size());
  for (std::size_t at = 0; at < answers.size(); ++at) {
    ASSERT_EQ(answers[at].state, expected[at].state) << batch[at].line.barcode << " " << batch[at].text;
    ASSERT_EQ(answers[at].text, expected[at].text);
  }
  ASSERT_TRUE(session_->Commit());
  if (Any(3) == 0) return;  // the answers are lost
  for (const FloorAnswer& answer : answers) {
    std::erase_if(device.queue,
                  [&](const FloorFigure& figure) { return figure.sequence == answer.sequence; });
  }
}

void FloorSimulation::ReadChanges(Handheld& device) {
  const FloorChanges changes = session_->ChangesSince(device.revision, device.count);
  device.revision = changes.revision;
  if (changes.linesChanged) {
    device.seen.clear();
    for (const FloorLine& line : session_->Lines(device.count))
      device.seen[{line.key.barcode, line.key.ordinal}] = line.figure;
  }
  for (const FloorChanges::Cell& cell : changes.cells)
    device.seen[{cell.line.barcode, cell.line.ordinal}] = cell.figure;
  for (const auto& [key, counts] : model_.lines)
    ASSERT_EQ(device.seen[key], counts.at(static_cast<std::size_t>(device.count - 1)))
        << "a change was missed";
}

void FloorSimulation::TypeAtDesk() {
  if (Lines().Rows() < 2) return;
  const int row = 1 + Any(Lines().Rows() - 1);
  const int count = 1 + Any(kFloorCounts);
  const std::string text = Any(6) == 0 ? std::string() : std::to_string(Any(20));
  const Key key = KeyAt(row);
  ASSERT_TRUE(Type(row, FloorLines::ColumnOf(count), text));
  model_.Note(key, count, text, false);
}

void FloorSimulation::DeleteAtDesk() {
  if (Lines().Rows() < 2) return;
  const int row = 1 + Any(Lines().Rows() - 1);
  const Key key = KeyAt(row);
  Lines().UserMoveTo(row, LineColumn::FirstCounting);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Lines().UserDeleteRow());
  model_.lines.erase(key);
}

void FloorSimulation::AddAtDesk() {
  const std::string barcode = kGoods[static_cast<std::size_t>(Any(3))];
  int ordinal = 1;
  while (model_.lines.contains({barcode, ordinal})) ++ordinal;
  if (ordinal > 3) return;
  std::vector<std::string> texts(kLineColumns);
  texts[LineColumn::RowNumber] = std::to_string(Lines().Rows());
  texts[LineColumn::Barcode] = barcode;
  texts[LineColumn::GoodName] = "كالا";
  texts[LineColumn::ScaleID] = "-1";
  Lines().AddRow(texts);
  model_.lines[{barcode, ordinal}] = {};
}

void FloorSimulation::SaveAtDesk() {
  if (Lines().Rows() < 2) return;  // a counting without lines is not saved
  Save();
  model_.Save();
  if (Any(2) == 0) {
    const auto answers = session_->Enter(
        1, Device(1), std::vector<FloorFigure>{{1'000'000, {"G1", 1}, FloorFigure::Operation::Set, "1", ""}});
    ASSERT_EQ(answers.at(0).state, FigureState::Paused);
  }
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
}

void FloorSimulation::FailToSave() {
  if (Lines().Rows() < 2) return;
  Desk().Timer1.Fire();
  failing.Plan().FailAt(1 + Any(2));
  Desk().cmdTmpSave.UserClick();
  failing.Plan().FailAt(0);
  ASSERT_EQ(DeskMode(), DocumentMode::Editing);
}

void FloorSimulation::CrashDesk() {
  ASSERT_TRUE(session_->Commit());
  Crash();
  StartAndOpen();
  if (Any(3) == 0) {  // and again, before or after the replay
    if (Any(2) == 0) session_->Replay();
    Crash();
    StartAndOpen();
  }
  const bool isNeeded = !session_->Left().Cells().empty();
  if (isNeeded) session_->Replay();
  model_.Restart();
}

void FloorSimulation::Step() {
  switch (Any(20)) {
    case 0:
    case 1:
      return TypeAtDesk();
    case 2:
      Lines().UserSort({Any(kLineColumns), Any(2) == 0 ? RowOrder::Ascending : RowOrder::Descending});
      return;
    case 3:
      return DeleteAtDesk();
    case 4:
      return AddAtDesk();
    case 5:
      return SaveAtDesk();
    case 6:
      return FailToSave();
    case 7:
      return CrashDesk();
    case 8:
      for (Handheld& device : devices_) {  // a page that is opened anew
        device.revision = 0;
        ReadChanges(device);
      }
      return;
    case 9:
    case 10:
      return ReadChanges(devices_[static_cast<std::size_t>(Any(kFloorCounts))]);
    case 11:
    case 12:
    case 13:
      return Deliver();
    default:
      return EnterOnDevice();
  }
}

void FloorSimulation::ExpectModel() {
  for (int count = 1; count <= kFloorCounts; ++count) {
    std::map<Key, std::string> shown;
    for (const FloorLine& line : session_->Lines(count))
      shown[{line.key.barcode, line.key.ordinal}] = line.figure;
    std::map<Key, std::string> expected;
    for (const auto& [key, counts] : model_.lines)
      expected[key] = counts.at(static_cast<std::size_t>(count - 1));
    ASSERT_EQ(shown, expected) << "count " << count;
  }
}

/// The counting that was saved is the one in which somebody types the same figures at the desk.
void FloorSimulation::ExpectSameAsTyped() {
  const char* const lines =
      "select Barcode,RowNumber,FirstCounting,SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting "
      "from "
      "tblInventoryCountingDetail where CountingID=20 order by RowNumber";
  if (Lines().Rows() < 2) return;
  std::vector<Counts> counts;
  for (int row = 1; row < Lines().Rows(); ++row) counts.push_back(model_.lines.at(KeyAt(row)));
  Save();
  const std::string fromFloor = database.Rows(lines);
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  session_->Stop();
  for (int row = 1; row < Lines().Rows(); ++row) {
    for (int count = 1; count <= kFloorCounts; ++count) {
      ASSERT_TRUE(Type(row, FloorLines::ColumnOf(count), "77"));
      ASSERT_TRUE(Type(row, FloorLines::ColumnOf(count),
                       counts[static_cast<std::size_t>(row - 1)].at(static_cast<std::size_t>(count - 1))));
    }
  }
  Save();
  ASSERT_EQ(database.Rows(lines), fromFloor);
}

void FloorSimulation::Session(unsigned seed) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  chance_.seed(seed);
  session_.reset();
  program_.reset();
  journal_.Remove();
  database.Execute(
      "delete from tblInventoryCountingDetail where CountingID=20;"
      "insert into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue) "
      "values (20,'G1',1,1,10,3),(20,'G2',2,1,10,3),(20,'G3',3,1,10,3),(20,'G1',4,1,10,3)");
  StartAndOpen();
  model_ = {};
  model_.lines = {{{"G1", 1}, {}}, {{"G1", 2}, {}}, {{"G2", 1}, {}}, {{"G3", 1}, {}}};
  model_.saved = model_.lines;
  devices_.clear();
  for (int count = 1; count <= kFloorCounts; ++count) devices_.push_back({count, 0, {}, {}, 0});
  for (int step = 0; step < kSteps && !HasFatalFailure(); ++step) {
    Step();
    if (!HasFatalFailure()) ExpectModel();
  }
  for (int round = 0; round < 30 && !HasFatalFailure(); ++round) Deliver();
  if (!HasFatalFailure()) ExpectModel();
  if (!HasFatalFailure()) ExpectSameAsTyped();
  NewMessages();
  NewStatements();
}

/// A quarter of the sessions, so that the quarters can run at the same time.
class FloorSessions : public FloorSimulation, public testing::WithParamInterface<unsigned> {};

TEST_P(FloorSessions, End_as_the_model_says_and_as_if_the_desk_had_typed_the_figures) {
  const unsigned first = GetParam() * kSessions / 4;
  for (unsigned seed = first + 1; seed <= first + kSessions / 4 && !HasFailure(); ++seed) Session(seed);
  EXPECT_FALSE(arrivals_.empty());
}

INSTANTIATE_TEST_SUITE_P(ByChance, FloorSessions, testing::Range(0U, 4U));

}  // namespace
}  // namespace koru::test
