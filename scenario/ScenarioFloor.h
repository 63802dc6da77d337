#pragma once

#include <deque>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "adapters/system/FloorJournalFiles.h"
#include "component/comInvCounting.h"
#include "scenario/ScriptedDevice.h"

namespace koru {

/// Counting on the floor in a scenario: the session over the counting form, with its journal in the
/// scenario's folder, and the devices.
class ScenarioFloor {
 public:
  explicit ScenarioFloor(std::filesystem::path folder) : journals_(std::move(folder)) {}

  /// Opens the counting that is being edited, or continues the session whose journal was left. Throws
  /// InputError as FloorSession does, and ScenarioFailure without a counting form.
  void Open(comInvCounting& counting);
  /// The program of the desk ends without notice.
  void Crash();

  /// The session that devices reach, also one that has ended; nullptr before Open, and when the form was
  /// closed or the desk has ended.
  [[nodiscard]] FloorSession* Desk() const { return isFormClosed_ ? nullptr : session_.get(); }
  /// The same, for steps of the desk. Throws ScenarioFailure when there is none.
  [[nodiscard]] FloorSession& OpenDesk() const;
  /// `open`, `paused`, `none` before Open and after Crash, or how the session has ended: `registered`,
  /// `cancelled`, `other`, `closed` or `stopped`.
  [[nodiscard]] std::string State() const;

  /// The device of that name, which exists from its first use.
  [[nodiscard]] ScriptedDevice& Device(const std::string& name);
  /// The name of a device of the session by its id.
  [[nodiscard]] std::string NameOf(const std::string& id) const;

  /// The figures that have reached cells, since Open or since the vector was emptied.
  std::vector<FloorArrival> arrivals;

 private:
  FloorJournalFiles journals_;
  std::unique_ptr<FloorJournal> journal_;
  std::unique_ptr<FloorSession> session_;
  Subscription formClosed_;
  bool isFormClosed_ = false;
  std::deque<ScriptedDevice> devices_;
};

}  // namespace koru
