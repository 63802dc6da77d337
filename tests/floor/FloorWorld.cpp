#include "tests/floor/FloorWorld.h"

#include "platform/text/TypedNumber.h"

namespace koru::test {
namespace {

constexpr const char* kCounting = R"(
insert into tblInventoryCounting (ID,InventoryID,CreatorID,CreateDate,FarsiCreateDate) values
  (20,2,7,'2025-12-20','1404/09/29'),(21,2,7,'2025-12-20','1404/09/29');
insert into tblInventoryCountingDetail (CountingID,Barcode,RowNumber,ScaleID,SystemCounting,BaseValue) values
  (20,'G1',1,1,10,3),(20,'G2',2,1,10,3),(20,'G3',3,1,10,3),(20,'G1',4,1,10,3);
)";

}  // namespace

FloorWorld::FloorWorld(TestDatabase::Kind kind) : CountingWorld(kind) {
  database.Execute(kCounting);
  StartAndOpen();
}

void FloorWorld::StartProgram() {
  session_.reset();
  program_.reset();
  HostServices services = Services();
  services.drafts = drafts_;
  program_ = std::make_unique<comInvCounting>(*this, services);
  program_->SetOLEConnectionString(database.ConnectionText());
  program_->SetUserID(7);
}

void FloorWorld::Start() {
  StartProgram();
  ViewAndEdit();
}

void FloorWorld::ViewAndEdit() {
  ASSERT_TRUE(program_->View(20));
  Desk().Timer1.Fire();
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  ASSERT_EQ(DeskMode(), DocumentMode::Editing);
}

void FloorWorld::Open() {
  session_ = std::make_unique<FloorSession>(
      Desk(), program_->Shared(),
      FloorSurroundings{journal_, [this] { return Desk().EntryIsWritten(); },
                        [this] { return random_ = random_ * 1664525U + 1013904223U; },
                        [this] { return std::chrono::sys_seconds(std::chrono::seconds(++now_)); }});
  session_->Arrived.Always([this](const FloorArrival& arrival) { arrivals_.push_back(arrival); });
  session_->JournalFailed.Always([this](const std::string& sentence) { failures_.push_back(sentence); });
}

void FloorWorld::Crash() {
  journal_.isFull = true;  // what is not there by now never will be
  session_.reset();
  journal_.isFull = false;
  program_.reset();
  journal_.LosePower();
  NewMessages();
}

std::string FloorWorld::Count(const LineKey& line, int count) {
  for (const FloorLine& shown : session_->Lines(count)) {
    if (shown.key == line) return shown.figure;
  }
  return "none";
}

bool FloorWorld::Type(int row, int col, const std::string& text) {
  return Lines().UserEdit(row, col, TypedNumberText(text));
}

void FloorWorld::Delete(int row) {
  Lines().UserMoveTo(row, LineColumn::FirstCounting);
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Lines().UserDeleteRow());
}

void FloorWorld::Save() {
  Desk().Timer1.Fire();  // the commands are those of what is on the form
  ASSERT_TRUE(Desk().cmdTmpSave.UserClick());
  ASSERT_EQ(DeskMode(), DocumentMode::Viewing);
}

void FloorWorld::CancelAndEdit() {
  messages.WillAnswer(Answer::Yes);
  ASSERT_TRUE(Desk().cmdCancel.UserClick());
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
  OpenNextSession();
}

void FloorWorld::ViewEditAndOpen() {
  ViewAndEdit();
  OpenNextSession();
}

void FloorWorld::OpenNextSession() {
  session_.reset();
  Open();
}

void FloorWorld::SaveAndEdit() {
  Save();
  ASSERT_TRUE(Desk().cmdEdit.UserClick());
}

FloorAnswer FloorWorld::Send(int count, const FloorFigure& figure) {
  const auto answers = session_->Enter(count, Device(count), {&figure, 1});
  EXPECT_EQ(answers.size(), 1U);
  EXPECT_TRUE(session_->Commit());
  return answers.at(0);
}

FloorAnswer FloorWorld::Set(int count, const LineKey& line, const std::string& text,
                            const std::string& base) {
  return Send(count, {++sequence_, line, FloorFigure::Operation::Set, text, base});
}

FloorAnswer FloorWorld::Add(int count, const LineKey& line, const std::string& text) {
  return Send(count, {++sequence_, line, FloorFigure::Operation::Add, text, {}});
}

}  // namespace koru::test
