#include "tests/campaigns/Station.h"

#include <utility>

#include "lines/LineColumns.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/ForwardingDatabase.h"
#include "platform/text/Errors.h"

namespace koru::test {
namespace {

constexpr const char* kSure[] = {"آيا مطمئن هستيد؟", "آيا از بازگشت به حالت موقت شمارش اطمينان داريد؟"};

class WaitingDatabase : public ForwardingDatabase {
 public:
  WaitingDatabase(std::unique_ptr<Database> inner, std::vector<std::chrono::microseconds>& waits)
      : ForwardingDatabase(std::move(inner)), waits_(waits) {}

  [[nodiscard]] std::unique_ptr<WriteBatch> BeginWriteBatch() override {
    const auto begin = std::chrono::steady_clock::now();
    auto batch = Inner().BeginWriteBatch();
    waits_.push_back(
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin));
    return batch;
  }

 private:
  std::vector<std::chrono::microseconds>& waits_;
};

std::string ConnectionTextOf(const std::string& database) {
  return database.starts_with("Provider=") ? database : EmbeddedConnectionText(database);
}

}  // namespace

std::unique_ptr<Database> WaitingConnector::Connect(const std::string& connectionText) {
  return std::make_unique<WaitingDatabase>(databases_.Connect(connectionText), waits_);
}

std::unique_ptr<Spreadsheet> Station::NoSpreadsheets::NewWorkbook() { throw InputError("none"); }

Station::Station(const std::string& database, DraftStore* drafts) : drafts_(drafts) {
  messages_.RegisterIn(components_);
  messages_.OnShow = [this](const FakeMessages::Message& message) {
    if (message.text == kSure[0] || message.text == kSure[1]) {
      messages_.WillAnswer(FakeMessages::Answer::Yes);
    } else if (message.type == 1) {
      asked_ = true;
    } else {
      ++failures_;
    }
  };
  control_.SetOLEConnectionString(ConnectionTextOf(database));
  control_.SetUserID(7);
}

bool Station::Open(int id) {
  messages_.Forget();
  failures_ = 0;
  asked_ = false;
  try {
    if (id == 0) {
      control_.ClearShow();
    } else if (!control_.View(id)) {
      return false;
    }
    if (control_.CountingForm() == nullptr) return false;
    Form().Timer1.Fire();
    return failures_ == 0;
  } catch (const DatabaseError&) {
    return false;
  }
}

bool Station::Click(Button& button) {
  Form().Timer1.Fire();
  return button.UserClick() && failures_ == 0;
}

bool Station::Enter(bool isNew, int mark) {
  const DocumentMode mode = control_.Shared().DocMode;
  if (mode != DocumentMode::Editing && mode != DocumentMode::New) {
    if (!Click(isNew ? Form().cmdNew : Form().cmdEdit)) return false;
  }
  Grid& grid = Form().flexDetail;
  base_ = Lines();
  if (grid.Rows() == 1) {
    for (int good = 1; good <= newLines_; ++good) {
      grid.AddItem(std::to_string(good));
      grid.SetTextMatrix(good, LineColumn::Barcode, "G" + std::to_string(good));
      grid.SetTextMatrix(good, LineColumn::GoodName, "good");
      grid.SetTextMatrix(good, LineColumn::ScaleID, "1");
      grid.SetTextMatrix(good, LineColumn::SystemCounting, "10");
    }
  }
  for (int row = 1; row < grid.Rows(); ++row) {
    if (!grid.UserEdit(row, LineColumn::AcceptedCounting, std::to_string(mark + row))) return false;
    if (OnTyped) OnTyped();
  }
  entered_ = true;
  OnEntered();
  return true;
}

Outcome Station::Shown(bool done) {
  Outcome outcome;
  outcome.done = done;
  outcome.asked = asked_;
  outcome.entered = entered_;
  outcome.messages = messages_.Texts();
  if (control_.CountingForm() == nullptr) return outcome;
  outcome.entering =
      control_.Shared().DocMode == DocumentMode::Editing || control_.Shared().DocMode == DocumentMode::New;
  const std::string id = Form().lblIDVal.Caption();
  outcome.id = id.empty() ? 0 : std::stoi(id);
  outcome.code = Form().txtCode.Text();
  outcome.lines = Lines();
  outcome.base = base_;
  return outcome;
}

std::string Station::Lines() {
  const Grid& grid = Form().flexDetail;
  std::string lines;
  for (int row = 1; row < grid.Rows(); ++row) {
    lines += std::string(grid.TextMatrix(row, LineColumn::Barcode)) + "=" +
             std::string(grid.TextMatrix(row, LineColumn::AcceptedCounting)) + ";";
  }
  return lines;
}

void Station::Tick(int times) {
  for (int tick = 0; tick < times; ++tick) Form().Timer1.Fire();
}

std::optional<Outcome> Station::RestoreDraft() {
  if (!control_.FindDraft() || !control_.RestoreDraft()) return {};
  return Shown(false);
}

Outcome Station::Do(Work work, int id, int mark) {
  const bool isNew = work == Work::SaveNew || work == Work::RegisterNew;
  if (!Open(isNew ? 0 : id)) return Shown(false);
  return Perform(work, mark);
}

Outcome Station::Perform(Work work, int mark) {
  messages_.Forget();
  failures_ = 0;
  asked_ = false;
  entered_ = false;
  base_ = Lines();
  const auto mode = [this] { return control_.Shared().DocMode; };
  switch (work) {
    case Work::Save:
    case Work::SaveNew:
      if (!Enter(work == Work::SaveNew, mark)) return Shown(false);
      return Shown(Click(Form().cmdTmpSave) && mode() == DocumentMode::Viewing);
    case Work::Register:
    case Work::RegisterNew:
      if (!Enter(work == Work::RegisterNew, mark)) return Shown(false);
      return Shown(Click(Form().cmdIsFinalized) && mode() == DocumentMode::Viewing);
    case Work::Return: {
      const bool wasFinal = !Form().txtCode.Text().empty();
      return Shown(Click(Form().cmdFunc) && wasFinal && Form().txtCode.Text().empty());
    }
    case Work::Delete:
      return Shown(Click(Form().cmdDelete) && mode() == DocumentMode::Empty);
  }
  return Shown(false);
}

}  // namespace koru::test
