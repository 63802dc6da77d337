#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/provider/ConnectorByProvider.h"
#include "component/comInvCounting.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"

namespace koru::test {

/// What a user at a station does.
enum class Work { Save, SaveNew, Register, RegisterNew, Return, Delete };
inline constexpr int kWorks = 6;

/// What the form reported of it.
struct Outcome {
  bool done = false;      ///< it says that it is done: no failure, and the form shows the new state
  bool asked = false;     ///< it asked more than whether the user is sure
  bool entered = false;   ///< the figures were typed, and only the save or the registration could fail
  bool entering = false;  ///< the form still lets the user enter
  int id = 0;             ///< the counting's key as the form shows it; 0 for none
  std::string code;       ///< its final number as the form shows it
  std::string lines;      ///< its lines as the form shows them: `barcode=accepted;`
  std::string base;       ///< the lines that the user saw before the work
  std::vector<std::string> messages;
};

/// Connects, and notes how long each write batch waited to begin.
class WaitingConnector : public DatabaseConnector {
 public:
  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;
  [[nodiscard]] const std::vector<std::chrono::microseconds>& Waits() const { return waits_; }

 private:
  ConnectorByProvider databases_;
  std::vector<std::chrono::microseconds> waits_;
};

/// A program at work on a database: the real form with a connection of its own, answered Yes wherever it asks
/// whether the user is sure, and not answered anything else. User 7.
class Station : private ControlHost {
 public:
  /// `database` is a file or a connection text. Keeps drafts in `drafts`, if any, which must outlive the
  /// station.
  explicit Station(const std::string& database, DraftStore* drafts = nullptr);

  /// Called when all is entered, right before the save or the registration.
  std::function<void()> OnEntered = [] {};
  /// How many lines a new counting gets: goods G1 and so on.
  void SetNewLines(int lines) { newLines_ = lines; }
  [[nodiscard]] const std::vector<std::chrono::microseconds>& Waits() const { return databases_.Waits(); }

  /// Opens what the work is on and does it, with figures that belong to `mark`.
  Outcome Do(Work work, int id, int mark);

  // The steps, for stations that work at the same time.
  /// Shows the stored counting; false when it cannot be shown.
  bool Open(int id);
  /// On what is shown; what is not available on the form does nothing.
  Outcome Perform(Work work, int mark);

  /// Called after each figure that Perform has typed.
  std::function<void()> OnTyped;
  [[nodiscard]] comInvCounting& Control() { return control_; }
  /// The form's timer ticks.
  void Tick(int times);
  /// The lines that the form shows.
  [[nodiscard]] std::string Lines();
  /// Restores what a program has left; nothing when there is no draft.
  [[nodiscard]] std::optional<Outcome> RestoreDraft();

 private:
  class NoFiles : public FileSystem {
    [[nodiscard]] bool FileExists(const std::string& /*path*/) const override { return false; }
  };
  class NoSpreadsheets : public SpreadsheetStarter {
    [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override;
  };
  [[nodiscard]] koru::Font AmbientFont() const override { return {}; }
  void PropertyChanged(std::string_view /*key*/) override {}

  [[nodiscard]] frmInvCounting& Form() { return *control_.CountingForm(); }
  bool Click(Button& button);
  /// Makes a new counting, or turns the shown one to editing, and types figures.
  bool Enter(bool isNew, int mark);
  [[nodiscard]] Outcome Shown(bool done);

  WaitingConnector databases_;
  ComponentRegistry components_;
  FakeMessages messages_;
  FakeScreen screen_;
  FixedClock clock_{std::chrono::year{2025} / 12 / 22};
  NoFiles files_;
  NoSpreadsheets spreadsheets_;
  DraftStore* drafts_;
  std::string base_;
  int newLines_ = 4;
  bool asked_ = false;
  bool entered_ = false;
  int failures_ = 0;
  comInvCounting control_{
      *this, HostServices{databases_, components_, screen_, clock_, files_, spreadsheets_, drafts_}};
};

}  // namespace koru::test
