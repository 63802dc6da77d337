#include "scenario/ScenarioFloor.h"

#include <algorithm>

#include "scenario/StepKind.h"

namespace koru {

void ScenarioFloor::Open(comInvCounting& counting) {
  frmInvCounting* const form = counting.CountingForm();
  if (form == nullptr) throw ScenarioFailure("no counting form is loaded");
  if (Desk() != nullptr && Desk()->Ended() == FloorSession::End::None)
    throw ScenarioFailure("the desk has opened the floor already");
  Crash();
  journal_ = journals_.Open({"scenario", static_cast<std::int32_t>(form->CountingID())});
  session_ = std::make_unique<FloorSession>(
      *form, counting.Shared(), FloorSurroundings{*journal_, [form] { return form->EntryIsWritten(); }});
  session_->Arrived.Always([this](const FloorArrival& arrival) { arrivals.push_back(arrival); });
  formClosed_ = form->Unloaded.Subscribe([this] { isFormClosed_ = true; });
}

void ScenarioFloor::Crash() {
  formClosed_.End();
  session_.reset();
  journal_.reset();
  isFormClosed_ = false;
  arrivals.clear();
}

FloorSession& ScenarioFloor::OpenDesk() const {
  if (Desk() == nullptr) throw ScenarioFailure("the desk has not opened the floor");
  return *Desk();
}

std::string ScenarioFloor::State() const {
  if (isFormClosed_) return "closed";
  if (session_ == nullptr) return "none";
  const bool open = session_->IsOpen();
  switch (session_->Ended()) {
    case FloorSession::End::None:
      return open ? "open" : "paused";
    case FloorSession::End::Registered:
      return "registered";
    case FloorSession::End::Cancelled:
      return "cancelled";
    case FloorSession::End::OtherCounting:
      return "other";
    case FloorSession::End::Unloaded:
      return "closed";
    case FloorSession::End::Stopped:
      break;
  }
  return "stopped";
}

ScriptedDevice& ScenarioFloor::Device(const std::string& name) {
  const auto found = std::find_if(devices_.begin(), devices_.end(),
                                  [&](const ScriptedDevice& device) { return device.Name() == name; });
  if (found != devices_.end()) return *found;
  return devices_.emplace_back("device-" + std::to_string(devices_.size() + 1), name);
}

std::string ScenarioFloor::NameOf(const std::string& id) const {
  for (const FloorDevice& device : OpenDesk().Devices()) {
    if (device.id == id) return device.name;
  }
  return id;
}

}  // namespace koru
