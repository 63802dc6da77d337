#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "scenario/FloorSteps.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/StepRows.h"

namespace koru {
namespace {

ScenarioWord Quoted(std::string text) { return {std::move(text), true}; }

ScenarioWord Bare(std::int64_t number) { return {std::to_string(number), false}; }

/// The device as its counter sees it now.
const ScriptedDevice& Seen(ScenarioWorld& world, const ScenarioStep& step) {
  ScenarioFloor& floor = FloorOf(world);
  ScriptedDevice& device = floor.Device(step.Text(2));
  device.Follow(floor.Desk());
  return device;
}

void ExpectFigure(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("figure of " + step.Text(4), QuotedForScenario(step.Text(5)),
         QuotedForScenario(Seen(world, step).Figure(step.Text(4))));
}

void ExpectUnsent(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("unsent figures", step.Text(4), std::to_string(Seen(world, step).Unsent()));
}

void ExpectLinesLeft(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("lines left", step.Text(4), std::to_string(Seen(world, step).Left()));
}

std::string_view NameOf(ScriptedDevice::Shows shows) {
  constexpr std::array<std::string_view, 5> kNames = {"nothing", "open", "paused", "closed", "unreachable"};
  return kNames.at(static_cast<std::size_t>(shows));
}

void ExpectShown(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe(step.Text(2), step.Text(3), std::string(NameOf(Seen(world, step).State())));
}

std::string_view NameOf(FigureState state) {
  constexpr std::array<std::string_view, 6> kNames = {"stored",   "warned", "refused",
                                                      "conflict", "gone",   "paused"};
  return kNames.at(static_cast<std::size_t>(state));
}

void ExpectAnswers(ScenarioWorld& world, const ScenarioStep& step) {
  StepRows found;
  for (const auto& [line, answer] : Seen(world, step).Answers()) {
    auto& row = found.emplace_back();
    row = {Quoted(line.barcode), {std::string(NameOf(answer.state)), false}, Quoted(answer.text)};
    const std::string& more = answer.state == FigureState::Conflict ? answer.by : answer.message;
    if (!more.empty()) row.push_back(Quoted(more));
  }
  RowsMustBe(step.rows, found, "answer");
}

void ExpectState(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("floor", step.Text(2), FloorOf(world).State());
}

void ExpectDevices(ScenarioWorld& world, const ScenarioStep& step) {
  StepRows found;
  for (const FloorDevice& device : FloorOf(world).OpenDesk().Devices())
    found.push_back({Quoted(device.name), Bare(device.count), Bare(device.received), Bare(device.refused)});
  RowsMustBe(step.rows, found, "device");
}

void ExpectUnknown(ScenarioWorld& world, const ScenarioStep& step) {
  StepRows found;
  for (const UnknownBarcode& unknown : FloorOf(world).OpenDesk().Unknown()) {
    found.push_back(
        {Quoted(unknown.barcode), Bare(unknown.count), Quoted(FloorOf(world).NameOf(unknown.device))});
  }
  RowsMustBe(step.rows, found, "unknown barcode");
}

void ExpectArrivals(ScenarioWorld& world, const ScenarioStep& step) {
  StepRows found;
  for (const FloorArrival& arrival : FloorOf(world).arrivals) {
    found.push_back({Bare(arrival.row), Bare(arrival.col), Quoted(arrival.before), Quoted(arrival.text),
                     Quoted(arrival.device)});
  }
  RowsMustBe(step.rows, found, "arrival");
}

void ExpectLeftFigures(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("left figures", step.Text(2), std::to_string(FloorOf(world).OpenDesk().Left().Cells().size()));
}

constexpr StepKind kKinds[] = {
    {"expect device TEXT figure TEXT TEXT", ExpectFigure},
    {"expect device TEXT unsent NUMBER", ExpectUnsent},
    {"expect device TEXT left NUMBER", ExpectLinesLeft},
    {"expect device TEXT nothing|open|paused|closed|unreachable", ExpectShown},
    {"expect device TEXT answers ROWS", ExpectAnswers},
    {"expect floor none|open|paused|registered|cancelled|other|closed|stopped", ExpectState},
    {"expect devices ROWS", ExpectDevices},
    {"expect unknown ROWS", ExpectUnknown},
    {"expect arrivals ROWS", ExpectArrivals},
    {"expect left NUMBER", ExpectLeftFigures},
};

}  // namespace

std::span<const StepKind> FloorExpectations() { return kKinds; }

}  // namespace koru
