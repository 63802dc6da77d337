#include "scenario/ScriptedDevice.h"

#include <algorithm>
#include <optional>

#include "platform/text/Numbers.h"
#include "platform/text/TypedNumber.h"
#include "scenario/Scenario.h"
#include "scenario/StepKind.h"

namespace koru {

void ScriptedDevice::Open(int count, std::string code, FloorSession* desk) {
  if (!hasNetwork_) throw ScenarioFailure("the device has no network");
  if (count != count_ && !unsent_.empty()) {
    throw ScenarioFailure("the device has unsent figures of the count " + std::to_string(count_));
  }
  count_ = count;
  code_ = std::move(code);
  revision_ = 0;
  figures_.clear();
  if (desk != nullptr && desk->CountOf(code_) == count_) desk->Hello(count_, id_, name_);
  Send(desk);
}

void ScriptedDevice::Enter(const std::string& barcode, FloorFigure::Operation operation,
                           const std::string& text) {
  if (shows_ == Shows::Nothing) throw ScenarioFailure("the device has opened no count");
  if (shows_ == Shows::Closed) throw ScenarioFailure("the device shows that the count is closed");
  const std::string shown = Figure(barcode);
  unsent_.push_back({++lastSequence_,
                     {barcode, 1},
                     operation,
                     text,
                     operation == FloorFigure::Operation::Set ? shown : std::string()});
}

void ScriptedDevice::Scan(const std::string& barcode) {
  if (!figures_.contains(barcode)) unknown_.push_back(barcode);
}

void ScriptedDevice::Send(FloorSession* desk) {
  const bool hasWork = !unsent_.empty() || !unknown_.empty();
  if (hasWork && hasNetwork_ && desk != nullptr && desk->CountOf(code_) == count_ &&
      !desk->IsCommandAtWork()) {
    const std::vector<FloorFigure> figures(unsent_.begin(), unsent_.end());
    const std::vector<FloorAnswer> answers = desk->Enter(count_, id_, figures);
    for (const std::string& barcode : unknown_) desk->NoteUnknown(count_, id_, barcode);
    isOnItsWay_ = true;
    if (desk->Commit() && !std::exchange(losesAnswer_, false)) TakeAnswers(answers);
  }
  Follow(desk);
}

/// Figures that the desk does not take while it is paused have no answer yet.
void ScriptedDevice::TakeAnswers(const std::vector<FloorAnswer>& answers) {
  isOnItsWay_ = false;
  unknown_.clear();
  std::vector<Answered> answered;
  for (const FloorAnswer& answer : answers) {
    if (answer.state == FigureState::Paused) continue;
    const auto figure = std::find_if(unsent_.begin(), unsent_.end(),
                                     [&](const FloorFigure& one) { return one.sequence == answer.sequence; });
    const auto line = figures_.find(figure->line.barcode);
    if (line != figures_.end()) line->second = answer.text;
    answered.push_back({figure->line, answer});
    unsent_.erase(figure);
  }
  if (!answered.empty()) answers_ = std::move(answered);
}

void ScriptedDevice::Follow(FloorSession* desk) {
  if (shows_ == Shows::Nothing && code_.empty()) return;
  if (!hasNetwork_ || desk == nullptr) {
    shows_ = Shows::Unreachable;
    return;
  }
  if (desk->CountOf(code_) != count_) {
    shows_ = Shows::Closed;
    return;
  }
  const FloorChanges changes = desk->ChangesSince(revision_, count_);
  shows_ = changes.open ? Shows::Open : Shows::Paused;
  if (isOnItsWay_) return;
  revision_ = changes.revision;
  if (changes.linesChanged) {
    figures_.clear();
    for (const FloorLine& line : desk->Lines(count_)) {
      if (line.key.ordinal == 1) figures_[line.key.barcode] = line.figure;
    }
  }
  for (const FloorChanges::Cell& cell : changes.cells) {
    if (cell.line.ordinal == 1) figures_[cell.line.barcode] = cell.figure;
  }
}

std::string ScriptedDevice::Figure(const std::string& barcode) const {
  const auto found = figures_.find(barcode);
  if (found == figures_.end())
    throw ScenarioFailure("the device shows no line with the barcode " + QuotedForScenario(barcode));
  std::string shown = found->second;
  for (const FloorFigure& figure : unsent_) {
    if (figure.line.barcode != barcode) continue;
    const std::string text = TypedNumberText(figure.text);
    shown = figure.operation == FloorFigure::Operation::Set ? text : NumberText(Val(shown) + Val(text));
  }
  return shown;
}

std::size_t ScriptedDevice::Left() const {
  return static_cast<std::size_t>(std::count_if(
      figures_.begin(), figures_.end(), [this](const auto& line) { return Figure(line.first).empty(); }));
}

}  // namespace koru
