// Sessions of the floor by chance, compared with a plain model after each step.

#include <algorithm>
#include <iterator>
#include <numeric>

#include "tests/floor/FloorSimulation.h"

namespace koru::test {
namespace {

constexpr unsigned kSessions = 1000;
constexpr unsigned kParts = 4;
constexpr int kSteps = 60;
constexpr std::int64_t kSequencesOfDevice = 1'000'000;  ///< so that both of a count have their own
constexpr int kFirstLine = 101;
constexpr int kLastLine = 104;

}  // namespace

FloorSimulation::FloorSimulation() : FloorWorld(TestDatabase::Kind::File) {
  drafts_ = &store_;
  store_.onWrite = [this] {
    model_.WriteDraft();
    ledger_.WriteDraft();
    draftIsGuarded_ = isGuarded_;
  };
}

void FloorSimulation::Reset(unsigned seed) {
  chance_.seed(seed);
  session_.reset();
  program_.reset();
  journal_.Remove();
  journal_.aside.clear();
  store_.text.clear();
  drawn_.clear();
  database.Execute(
      "delete from tblInventoryCountingDetail where CountingID=20;"
      "insert into tblInventoryCountingDetail "
      "(CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue) "
      "values (20,'G1',1,1,101,3),(20,'G2',2,1,102,3),(20,'G3',3,1,103,3),(20,'G1',4,1,104,3)");
  lastLine_ = kLastLine;
  model_ = FloorModel({{kFirstLine, "G1", {}}, {102, "G2", {}}, {103, "G3", {}}, {kLastLine, "G1", {}}});
  model_.Begin();
  StartAndOpen();
  ledger_ = {};
  FollowSession();
  devices_.clear();
  NoteCodes();
  for (int count = 1; count <= kFloorCounts; ++count) {
    devices_.push_back({count, Device(count), 0, {}, {}, 0});
    devices_.push_back({count, Device(count) + "b", kSequencesOfDevice, {}, {}, 0});
  }
  HasReadOrSaved();
}

void FloorSimulation::Step() {
  switch (Any(10)) {
    case 0:
      return ReadChanges(AnyDevice());
    case 1:
    case 2:
      return Deliver(AnyDevice(), Any(3) > 0);
    case 3:
      if (Any(3) > 0) return EnterOnDevice();
      for (SimulatedDevice& device : devices_) {  // a page that is opened anew
        device.revision = 0;
        ReadChanges(device);
      }
      return;
    case 4:
    case 5:
    case 6:
      return EnterOnDevice();
    default:
      return StepOfDesk();
  }
}

void FloorSimulation::StepOfDesk() {
  if (model_.IsEdited() && !model_.Left().empty() && Any(2) == 0) return WorkWhileLeft();
  const int step = Any(29);
  if (step == 0 || step == 28) return CrashDesk();
  if (step == 1) return OtherStationWrites();
  if (step == 2) return SortAtDesk();
  if (!model_.IsEdited()) return step < 4 ? ShowAgain() : Edit();
  switch (step) {
    case 3:
      return DeleteAtDesk();
    case 4:
    case 5:
      return AddAtDesk();
    case 6:
    case 7:
      return SaveAtDesk();
    case 8:
      return FailToSave();
    case 9:
      return Cancel();
    case 10:
      return Any(3) == 0 ? ShowAgain() : Cancel();
    case 11:
    case 12:
      return StopOrReopen();
    case 13:
    case 14:
      return DecideLeft();
    case 15:
      return TakeBack();
    case 19:
    case 24:
    case 25:
    case 26:
    case 27:
      return PauseAtDesk();
    case 20:
      return RenewCode();
    case 16:
    case 17:
      return UndoAtDesk();
    case 18:
      return RedoAtDesk();
    default:
      return TypeAtDesk();
  }
}

void FloorSimulation::ExpectModel() {
  if (model_.SessionState() == FloorModel::State::Stopped) Desk().Timer1.Fire();
  std::map<int, FloorModel::Counts> onForm;
  for (int row = 1; row < Lines().Rows(); ++row) {
    onForm[LineIn(row)] = {CellOf(row, LineColumn::FirstCounting), CellOf(row, LineColumn::SecondCounting),
                           CellOf(row, LineColumn::ThirdCounting)};
  }
  std::map<int, FloorModel::Counts> expected;
  for (const FloorModel::Line& line : model_.Lines()) expected[line.id] = line.counts;
  ASSERT_EQ(onForm, expected);
  ASSERT_NO_FATAL_FAILURE(ExpectOrderOfEntry());
  ASSERT_EQ(!store_.text.empty(), model_.HasDraft());
  ASSERT_EQ(model_.IsEdited() && Desk().EntryIsWritten(), model_.IsEdited() && model_.IsWritten());
  ASSERT_EQ(ledger_.Complaint(session_->Left().Cells()), "");
  ASSERT_EQ(model_.Lost(), "");
  ASSERT_EQ(model_.Misplaced(), Texts{});
  ASSERT_NO_FATAL_FAILURE(ExpectSession());
}

void FloorSimulation::ExpectOrderOfEntry() {
  std::vector<int> rows(static_cast<std::size_t>(Lines().Rows() - 1));
  std::iota(rows.begin(), rows.end(), 1);
  std::ranges::sort(rows, {}, [this](int row) { return Lines().Entry(row); });
  std::vector<int> lines;
  std::ranges::transform(rows, std::back_inserter(lines), [this](int row) { return LineIn(row); });
  std::vector<int> expected;
  std::ranges::transform(model_.Lines(), std::back_inserter(expected), &FloorModel::Line::id);
  ASSERT_EQ(lines, expected);
}

void FloorSimulation::ExpectSession() {
  using State = FloorModel::State;
  const State state = model_.SessionState();
  ASSERT_EQ(session_->IsOpen(), model_.IsOpen());
  ASSERT_EQ(session_->Ended() == FloorSession::End::None, state == State::Running);
  const auto withFigures = std::count_if(journal_.aside.begin(), journal_.aside.end(),
                                         [](const auto& text) { return !ReadJournal(text).figures.empty(); });
  ASSERT_EQ(static_cast<std::size_t>(withFigures), model_.Aside().size());
  ASSERT_EQ(journal_.aside.size(), model_.SetAside());
  if (state != State::Running) return;
  ASSERT_NO_FATAL_FAILURE(ExpectKeys());
  for (int count = 1; count <= kFloorCounts; ++count)
    ASSERT_EQ(session_->CountOf(codes_.at(static_cast<std::size_t>(count - 1))), count);
  std::map<std::tuple<int, std::string, int>, std::string> left;
  for (const LeftFigures::Cell& cell : session_->Left().Cells())
    left[{cell.count, cell.line.barcode, cell.line.ordinal}] = cell.text;
  std::map<std::tuple<int, std::string, int>, std::string> expectedLeft;
  for (const FloorModel::LeftCell& cell : model_.Left())
    expectedLeft[{cell.count, cell.line.barcode, cell.line.ordinal}] = cell.last;
  ASSERT_EQ(left, expectedLeft);
  for (int count = 1; count <= kFloorCounts; ++count) {
    std::map<std::pair<std::string, int>, std::string> shown;
    for (const FloorLine& line : session_->Lines(count))
      shown[{line.key.barcode, line.key.ordinal}] = line.figure;
    std::map<std::pair<std::string, int>, std::string> expected;
    for (const FloorModel::Line& line : model_.Lines())
      expected[{line.key.barcode, line.key.ordinal}] = model_.Cell(line.id, count);
    ASSERT_EQ(shown, expected) << "count " << count;
  }
}

/// Each line has the key that it has in the model, or one that no line had before.
void FloorSimulation::ExpectKeys() {
  std::map<std::uint32_t, int> rows;  // in the order in which devices see them
  for (int row = 1; row < Lines().Rows(); ++row) rows[Lines().RowID(row)] = LineIn(row);
  const std::vector<FloorLine> shown = session_->Lines(1);
  ASSERT_EQ(shown.size(), rows.size());
  std::map<int, int> ordinals;
  auto line = shown.begin();
  for (const auto& [row, id] : rows) {
    const LineKey& key = (line++)->key;
    ordinals[id] = key.ordinal;
    const LineKey& expected = model_.Find(id)->key;
    if (expected.ordinal > 0) {
      ASSERT_EQ(key.ordinal, expected.ordinal) << "line " << id;
    } else {
      ASSERT_GE(key.ordinal, FloorModel::kFirstDrawn);
      ASSERT_TRUE(drawn_.insert(key.ordinal).second) << "line " << id;
    }
  }
  model_.TakeDrawn(ordinals);
}

void FloorSimulation::ExpectStored() {
  std::string expected;
  for (const FloorModel::StoredLine& line : model_.Stored()) {
    expected += std::to_string(line.id) + "|" + line.barcode;
    for (const std::string& text : line.counts) expected += "|" + (text.empty() ? "NULL" : text);
    expected += "\n";
  }
  ASSERT_EQ(database.Rows("select SystemCounting,Barcode,FirstCounting,SecondCounting,ThirdCounting from "
                          "tblInventoryCountingDetail where CountingID=20 order by RowNumber"),
            expected);
}

/// The counting that was saved is the one in which somebody types the same figures at the desk.
void FloorSimulation::ExpectSameAsTyped() {
  const char* const lines =
      "select Barcode,RowNumber,FirstCounting,SecondCounting,ThirdCounting,AcceptedCounting,SystemCounting "
      "from tblInventoryCountingDetail where CountingID=20 order by RowNumber";
  if (!HasLines()) return;
  if (model_.IsChangedElsewhere()) messages.WillAnswer(Answer::Yes);
  Save();
  const std::string fromFloor = database.Rows(lines);
  model_.Save(Order());
  ASSERT_NO_FATAL_FAILURE(ExpectStored());
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  session_->Stop();
  for (int row = 1; row < Lines().Rows(); ++row) {
    for (int count = 1; count <= kFloorCounts; ++count) {
      ASSERT_TRUE(Type(row, FloorLines::ColumnOf(count), "77"));
      ASSERT_TRUE(Type(row, FloorLines::ColumnOf(count), model_.Cell(LineIn(row), count)));
    }
  }
  Save();
  ASSERT_EQ(database.Rows(lines), fromFloor);
}

/// All that waits is decided and sent.
void FloorSimulation::End() {
  if (!model_.IsEdited()) Edit();
  if (model_.SessionState() == FloorModel::State::Stopped) StopOrReopen();
  while (!model_.Left().empty()) DecideLeft();
  for (int round = 0; round < 30 && !HasFatalFailure(); ++round) Deliver(AnyDevice(), Any(3) > 0);
  if (!HasFatalFailure()) ExpectModel();
  if (!HasFatalFailure()) ExpectSameAsTyped();
}

void FloorSimulation::Session(unsigned seed) {
  SCOPED_TRACE("seed " + std::to_string(seed));
  Reset(seed);
  for (int step = 0; step < kSteps && !HasFatalFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    Step();
    if (!HasFatalFailure()) ExpectModel();
  }
  if (!HasFatalFailure()) End();
  NewMessages();
  NewStatements();
}

namespace {

/// A quarter of the sessions, so that the quarters can run at the same time.
class FloorSessions : public FloorSimulation, public testing::WithParamInterface<unsigned> {};

TEST_P(FloorSessions, End_as_the_model_says_and_as_if_the_desk_had_typed_the_figures) {
  const unsigned first = GetParam() * kSessions / kParts;
  for (unsigned seed = first + 1; seed <= first + kSessions / kParts && !HasFailure(); ++seed) Session(seed);
  EXPECT_FALSE(arrivals_.empty());
}

INSTANTIATE_TEST_SUITE_P(ByChance, FloorSessions, testing::Range(0U, kParts));

}  // namespace
}  // namespace koru::test
