#pragma once

#include <filesystem>
#include <future>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "adapters/system/DraftFiles.h"
#include "lines/LineColumns.h"
#include "tests/counting/CountingWorld.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {

/// A program that keeps drafts, and that can end without warning.
class Drafts : public CountingWorld {
 protected:
  Drafts() { Start(); }

  void Start() {
    HostServices services = Services();
    services.drafts = &store_;
    if (hasWriter_) {
      services.runDraftWrite = [this](std::packaged_task<void()> write) {
        writes_.push_back(std::move(write));
      };
    }
    program_ = std::make_unique<comInvCounting>(*this, services);
    program_->SetOLEConnectionString(database.ConnectionText());
    program_->SetUserID(7);
  }
  /// The program ends without a save or a cancel, and is started again.
  void Crash() {
    program_.reset();
    NewMessages();
    Start();
  }
  frmInvCounting& Counting() { return *program_->CountingForm(); }
  DocumentMode Mode() { return program_->Shared().DocMode; }
  /// Everything that a user sees of the form.
  std::string Shown();
  void Tick(int times = 1) {
    for (int tick = 0; tick < times; ++tick) Counting().Timer1.Fire();
  }
  void Pause() { Tick(DraftKeeper::kPauseTicks); }

  void Edit(std::int32_t id) {
    ASSERT_TRUE(program_->View(id));
    Click(Counting().cmdEdit);
  }
  void EnterNew() {
    program_->ClearShow();
    Click(Counting().cmdNew);
    for (int line = 1; line <= 3; ++line) {
      const std::string number = std::to_string(line);
      Counting().flexDetail.AddItem(number);
      Counting().flexDetail.SetTextMatrix(line, LineColumn::Barcode, "G" + number);
      Counting().flexDetail.SetTextMatrix(line, LineColumn::GoodName, "كالا\t" + number + "\\\n");
      Counting().flexDetail.SetTextMatrix(line, LineColumn::SystemCounting, number + ".5");
      Counting().flexDetail.SetTextMatrix(line, LineColumn::Rate, "1" + number);
      Counting().flexDetail.SetRowBackColor(
          line, line % 2 == 0 ? CountingLines::kEvenRowColor : CountingLines::kOddRowColor);
    }
  }
  void Type(const std::string& figure) {
    ASSERT_TRUE(Counting().flexDetail.UserEdit(1, LineColumn::AcceptedCounting, figure));
  }
  /// The files of texts: drafts, and those that were set aside.
  std::vector<std::filesystem::path> DraftPaths() const;
  std::size_t Files() const { return DraftPaths().size(); }
  std::filesystem::path OnlyFile() const { return DraftPaths().at(0); }

  TemporaryFolder folder_;
  DraftFiles store_{folder_.Path() / "drafts"};
  bool hasWriter_ = false;                          ///< writes are run by the test, in the next program
  std::vector<std::packaged_task<void()>> writes_;  ///< those that wait for it
  std::unique_ptr<comInvCounting> program_;
};

}  // namespace koru::test
