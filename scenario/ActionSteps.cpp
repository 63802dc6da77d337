#include <algorithm>

#include "platform/controls/Timer.h"
#include "scenario/ControlWords.h"
#include "scenario/KeyNames.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

/// A step that a user could not do is an error of the scenario, not an outcome.
void MustBeDone(bool done, const Control& control, const ScenarioStep& step) {
  if (done) return;
  std::string why = "it does not take that";
  if (!control.Enabled()) why = "it is disabled";
  if (!control.Visible()) why = "it is not visible";
  if (IsLocked(control)) why = "it is locked";
  throw ScenarioFailure("the user cannot " + step.Text(0) + " " + control.Name() + ": " + why);
}

void View(ScenarioWorld& world, const ScenarioStep& step) {
  world.viewResult.reset();
  world.driver->Run([&] { world.viewResult = world.counting->View(step.Number(1)); });
}

void ClearShow(ScenarioWorld& world, const ScenarioStep&) {
  world.driver->Run([&] { world.counting->ClearShow(); });
}

void Click(ScenarioWorld& world, const ScenarioStep& step) {
  Control& control = world.FindControl(step.Text(1));
  if (auto* const item = dynamic_cast<MenuItem*>(&control)) {
    MustBeDone(world.driver->Click(*item), control, step);
  } else {
    MustBeDone(world.driver->Click(As<Button>(control, "button")), control, step);
  }
}

void Type(ScenarioWorld& world, const ScenarioStep& step) {
  auto& box = As<TextBox>(world.FindControl(step.Text(1)), "text box");
  MustBeDone(world.driver->Type(box, step.Text(2)), box, step);
}

void Pick(ScenarioWorld& world, const ScenarioStep& step) {
  auto& selector = As<Selector>(world.FindControl(step.Text(1)), "selector");
  const std::int32_t id = step.Text(2) == "nothing" ? Selector::kNothing : step.Number(2);
  MustBeDone(world.driver->Pick(selector, id), selector, step);
}

void SetDate(ScenarioWorld& world, const ScenarioStep& step) {
  auto& box = As<DateBox>(world.FindControl(step.Text(1)), "date box");
  std::optional<Date> date;
  if (step.Text(2) != "empty") date = ToGregorian(*ParseSolar(step.Text(2)));
  MustBeDone(world.driver->SetDate(box, date), box, step);
}

void Check(ScenarioWorld& world, const ScenarioStep& step) {
  auto& box = As<CheckBox>(world.FindControl(step.Text(1)), "check box");
  MustBeDone(world.driver->Check(box, step.Text(2) == "on"), box, step);
}

void ChooseOption(ScenarioWorld& world, const ScenarioStep& step) {
  auto& option = As<OptionButton>(world.FindControl(step.Text(1)), "option button");
  MustBeDone(world.driver->Choose(option), option, step);
}

void ChooseEntry(ScenarioWorld& world, const ScenarioStep& step) {
  auto& list = As<ComboBox>(world.FindControl(step.Text(1)), "list");
  const auto& items = list.Items();
  const auto found =
      std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.text == step.Text(2); });
  if (found == items.end())
    throw ScenarioFailure(list.Name() + " has no entry " + QuotedForScenario(step.Text(2)));
  MustBeDone(world.driver->Choose(list, static_cast<int>(found - items.begin())), list, step);
}

Grid& GridOf(ScenarioWorld& world, const ScenarioStep& step) {
  return As<Grid>(world.FindControl(step.Text(1)), "grid");
}

void TypeCell(ScenarioWorld& world, const ScenarioStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.driver->TypeCell(grid, step.Number(2), step.Number(3), step.Text(4)), grid, step);
}

void MoveTo(ScenarioWorld& world, const ScenarioStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.driver->MoveTo(grid, step.Number(2), step.Number(3)), grid, step);
}

void DeleteRow(ScenarioWorld& world, const ScenarioStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.driver->DeleteRow(grid, step.Number(2)), grid, step);
}

void Sort(ScenarioWorld& world, const ScenarioStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.driver->ClickHeader(grid, step.Number(2)), grid, step);
}

void DoubleClick(ScenarioWorld& world, const ScenarioStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.driver->DoubleClick(grid, step.Number(2)), grid, step);
}

void RightClick(ScenarioWorld& world, const ScenarioStep& step) {
  Control& control = world.FindControl(step.Text(1));
  MustBeDone(world.driver->RightClick(control), control, step);
}

void PressKey(ScenarioWorld& world, const ScenarioStep& step) {
  Control& control = world.FindControl(step.Text(1));
  MustBeDone(world.driver->Press(control, *ParseKey(step.Text(2))), control, step);
}

void MustHaveKeyboard(bool done) {
  if (!done) throw ScenarioFailure("nothing has the keyboard; without windows (--desktop), nothing ever has");
}

void PressHere(ScenarioWorld& world, const ScenarioStep& step) {
  MustHaveKeyboard(world.driver->PressHere(*ParseKey(step.Text(1))));
}

void TypeHere(ScenarioWorld& world, const ScenarioStep& step) {
  MustHaveKeyboard(world.driver->TypeHere(step.Text(1)));
}

void Tick(ScenarioWorld& world, const ScenarioStep&) {
  for (Control* const control : world.ActiveForm().Controls()) {
    if (auto* const timer = dynamic_cast<Timer*>(control)) timer->Fire();
  }
}

void Close(ScenarioWorld& world, const ScenarioStep&) { world.driver->Close(world.ActiveForm()); }

void TakePicture(ScenarioWorld& world, const ScenarioStep& step) { world.driver->TakePicture(step.Text(1)); }

constexpr StepKind kKinds[] = {
    {"view NUMBER", View},
    {"clearshow", ClearShow},
    {"click NAME", Click},
    {"type NAME TEXT", Type},
    {"pick NAME NUMBER|nothing", Pick},
    {"date NAME DATE|empty", SetDate},
    {"check NAME on|off", Check},
    {"choose NAME", ChooseOption},
    {"choose NAME TEXT", ChooseEntry},
    {"cell NAME NUMBER NUMBER TEXT", TypeCell},
    {"go NAME NUMBER NUMBER", MoveTo},
    {"delete NAME NUMBER", DeleteRow},
    {"sort NAME NUMBER", Sort},
    {"doubleclick NAME NUMBER", DoubleClick},
    {"rightclick NAME", RightClick},
    {"key NAME KEY", PressKey},
    {"press KEY", PressHere},
    {"press TEXT", TypeHere},
    {"tick", Tick},
    {"close", Close},
    {"picture TEXT", TakePicture},
};

}  // namespace

std::span<const StepKind> ActionSteps() { return kKinds; }

}  // namespace koru
