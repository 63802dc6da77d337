#include "scenario/FloorSteps.h"

#include <cstddef>
#include <iterator>

#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {

ScenarioFloor& FloorOf(ScenarioWorld& world) {
  if (!world.floor) world.floor = std::make_shared<ScenarioFloor>(world.Folder() / "floor");
  return *world.floor;
}

namespace {

void OpenFloor(ScenarioWorld& world, const ScenarioStep&) {
  world.driver->Run([&] { FloorOf(world).Open(*world.counting); });
}

void StopFloor(ScenarioWorld& world, const ScenarioStep&) {
  world.driver->Run([&] { FloorOf(world).OpenDesk().Stop(); });
}

void RenewCode(ScenarioWorld& world, const ScenarioStep& step) {
  FloorOf(world).OpenDesk().RenewCode(CountIn(step, 2));
}

void ReplayLeft(ScenarioWorld& world, const ScenarioStep&) {
  world.driver->Run([&] { FloorOf(world).OpenDesk().Replay(); });
}

void ForgoLeft(ScenarioWorld& world, const ScenarioStep&) { FloorOf(world).OpenDesk().ForgoLeft(); }

void TakeBackLeft(ScenarioWorld& world, const ScenarioStep&) {
  if (!FloorOf(world).OpenDesk().TakeBackSetAside())
    throw ScenarioFailure("no figures were set aside that the counting lacks");
}

void Crash(ScenarioWorld& world, const ScenarioStep&) {
  FloorOf(world).Crash();
  world.Restart();
}

void ForgetArrivals(ScenarioWorld& world, const ScenarioStep&) { FloorOf(world).arrivals.clear(); }

/// The device does something and sends what it has; figures show at the desk at once.
template <class Action>
void Use(ScenarioWorld& world, const ScenarioStep& step, const Action& action) {
  ScriptedDevice& device = FloorOf(world).Device(step.Text(1));
  world.driver->Run([&] {
    FloorSession* const desk = FloorOf(world).Desk();
    device.Follow(desk);
    action(device);
    device.Send(desk);
  });
}

void OpenCount(ScenarioWorld& world, const ScenarioStep& step) {
  FloorSession& desk = FloorOf(world).OpenDesk();
  const int count = CountIn(step, 3);
  Use(world, step, [&](ScriptedDevice& device) { device.Open(count, desk.Code(count), &desk); });
}

void SetFigure(ScenarioWorld& world, const ScenarioStep& step) {
  Use(world, step,
      [&](ScriptedDevice& device) { device.Enter(step.Text(3), FloorFigure::Operation::Set, step.Text(4)); });
}

void AddFigure(ScenarioWorld& world, const ScenarioStep& step) {
  Use(world, step,
      [&](ScriptedDevice& device) { device.Enter(step.Text(3), FloorFigure::Operation::Add, step.Text(4)); });
}

void Scan(ScenarioWorld& world, const ScenarioStep& step) {
  Use(world, step, [&](ScriptedDevice& device) { device.Scan(step.Text(3)); });
}

void Send(ScenarioWorld& world, const ScenarioStep& step) {
  Use(world, step, [](ScriptedDevice&) {});
}

void LoseNetwork(ScenarioWorld& world, const ScenarioStep& step) {
  FloorOf(world).Device(step.Text(1)).SetNetwork(false);
}

void FindNetwork(ScenarioWorld& world, const ScenarioStep& step) {
  Use(world, step, [](ScriptedDevice& device) { device.SetNetwork(true); });
}

void LoseAnswer(ScenarioWorld& world, const ScenarioStep& step) {
  FloorOf(world).Device(step.Text(1)).LoseAnswer();
}

constexpr StepKind kActions[] = {
    {"floor open", OpenFloor},
    {"floor stop", StopFloor},
    {"floor renew NUMBER", RenewCode},
    {"floor replay", ReplayLeft},
    {"floor forgo", ForgoLeft},
    {"floor recall", TakeBackLeft},
    {"forget arrivals", ForgetArrivals},
    {"crash", Crash},
    {"device TEXT open NUMBER", OpenCount},
    {"device TEXT set TEXT TEXT", SetFigure},
    {"device TEXT add TEXT TEXT", AddFigure},
    {"device TEXT scan TEXT", Scan},
    {"device TEXT send", Send},
    {"device TEXT offline", LoseNetwork},
    {"device TEXT online", FindNetwork},
    {"device TEXT lose answer", LoseAnswer},
};

}  // namespace

int CountIn(const ScenarioStep& step, std::size_t index) {
  const int count = step.Number(index);
  if (count < 1 || count > kFloorCounts) throw ScenarioFailure("the counts are 1, 2 and 3");
  return count;
}

std::span<const StepKind> FloorSteps() {
  static const std::vector<StepKind> kinds = [] {
    std::vector<StepKind> all(std::begin(kActions), std::end(kActions));
    const auto expectations = FloorExpectations();
    all.insert(all.end(), expectations.begin(), expectations.end());
    return all;
  }();
  return kinds;
}

}  // namespace koru
