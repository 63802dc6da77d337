#pragma once

#include <array>
#include <deque>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/floor/FloorLedger.h"
#include "tests/floor/FloorModel.h"
#include "tests/floor/FloorWorld.h"
#include "tests/floor/MemoryDrafts.h"

namespace koru::test {

/// A device with its queue, which survives its crashes, and what it believes the counts to be.
struct SimulatedDevice {
  int count = 1;
  std::string id;
  std::int64_t lastSequence = 0;
  std::deque<FloorFigure> queue;
  std::map<std::pair<std::string, int>, std::string> seen;
  std::int64_t revision = 0;
};

/// Sessions by chance: two devices for each count over a network that loses, doubles and reorders, a desk
/// that types, undoes, sorts, deletes, adds, saves and cancels, another station that writes in between, and
/// crashes of either side, after which the desk restores its draft or discards it. A line is known by its
/// book stock, which no other line has.
class FloorSimulation : public FloorWorld {
 protected:
  FloorSimulation();

  /// One whole session, different for each seed; fails where it does not end as the model says.
  void Session(unsigned seed);

 private:
  /// A figure that the desk has entered, to be undone.
  struct DeskStep {
    int id;
    int count;
    std::string before;
    std::string after;
  };

  void Reset(unsigned seed);
  void Step();
  void StepOfDesk();
  void End();

  // Devices (FloorSimulationDevices.cpp).
  void EnterOnDevice();
  void LoseAnswers();
  void Deliver(SimulatedDevice& device, bool isAnswered);
  void ReadChanges(SimulatedDevice& device);
  [[nodiscard]] std::vector<FloorFigure> Batch(const SimulatedDevice& device);

  // The desk (FloorSimulationDesk.cpp).
  void DeskEnters(int id, int count, const std::string& text);
  void TypeAtDesk();
  void UndoAtDesk();
  void RedoAtDesk();
  void SortAtDesk();
  void DeleteAtDesk();
  void AddAtDesk();
  void SaveAtDesk();
  void FailToSave();
  void Edit();
  void Cancel();
  void ShowAgain();
  void StopOrReopen();
  void DecideLeft();
  void WorkWhileLeft();
  void TakeBack();
  void CrashDesk();
  void StartAfterCrash(std::size_t kept);
  void RestoreDraft();
  void PauseAtDesk();
  void RenewCode();
  void NoteCodes();
  void OtherStationWrites();
  void BeginIfEnded();
  void FollowSession();
  void HasReadOrSaved();
  void ForgetHistory();

  // What must be (FloorSimulation_test.cpp).
  void ExpectModel();
  void ExpectOrderOfEntry();
  void ExpectSession();
  void ExpectKeys();
  void ExpectStored();
  void ExpectSameAsTyped();

  [[nodiscard]] int Any(int below) { return static_cast<int>(chance_() % static_cast<unsigned>(below)); }
  [[nodiscard]] std::string AnyBarcode() { return "G" + std::to_string(1 + Any(3)); }
  [[nodiscard]] SimulatedDevice& AnyDevice() {
    return devices_[static_cast<std::size_t>(Any(2 * kFloorCounts))];
  }
  [[nodiscard]] bool HasLines() { return Lines().Rows() > 1; }
  /// The line in a row, by its book stock.
  [[nodiscard]] int LineIn(int row) { return std::stoi(CellOf(row, LineColumn::SystemCounting)); }
  [[nodiscard]] std::pair<int, int> AnyCell();
  [[nodiscard]] std::vector<int> Order();

  std::mt19937 chance_;
  FloorModel model_{{}};
  FloorLedger ledger_;
  std::vector<SimulatedDevice> devices_;
  std::array<std::string, kFloorCounts> codes_;
  std::set<int> drawn_;  ///< the ordinals that have been drawn
  std::vector<DeskStep> history_;
  std::size_t done_ = 0;  ///< the steps of the history that are not undone
  int lastLine_ = 0;
  bool isGuarded_ = true;  ///< the form knows what another station must not have changed
  MemoryDrafts store_;
  bool draftIsGuarded_ = true;  ///< the draft knows it
};

}  // namespace koru::test
