#include <algorithm>

#include "host/play/ControlWords.h"
#include "host/play/KeyNames.h"
#include "host/play/StepKind.h"
#include "host/play/StoryWorld.h"
#include "platform/Timer.h"

namespace koru {
namespace {

/// A step that a person could not do is no outcome but an error of the story.
void MustBeDone(bool done, const Control& control, const StoryStep& step) {
  if (done) return;
  std::string why = "it does not take that";
  if (!control.Enabled()) why = "it is disabled";
  if (!control.Visible()) why = "it is not visible";
  if (IsLocked(control)) why = "it is locked";
  throw StoryFailure("a person cannot " + step.Text(0) + " " + control.Name() + ": " + why);
}

void View(StoryWorld& world, const StoryStep& step) {
  world.viewResult.reset();
  world.stage->Run([&] { world.viewResult = world.counting.View(step.Number(1)); });
}

void ClearShow(StoryWorld& world, const StoryStep&) {
  world.stage->Run([&] { world.counting.ClearShow(); });
}

void Click(StoryWorld& world, const StoryStep& step) {
  Control& control = world.FindControl(step.Text(1));
  if (auto* const item = dynamic_cast<MenuItem*>(&control)) {
    MustBeDone(world.stage->Click(*item), control, step);
  } else {
    MustBeDone(world.stage->Click(As<Button>(control, "button")), control, step);
  }
}

void Type(StoryWorld& world, const StoryStep& step) {
  auto& box = As<TextBox>(world.FindControl(step.Text(1)), "text box");
  MustBeDone(world.stage->Type(box, step.Text(2)), box, step);
}

void Pick(StoryWorld& world, const StoryStep& step) {
  auto& selector = As<Selector>(world.FindControl(step.Text(1)), "selector");
  const std::int32_t id = step.Text(2) == "nothing" ? Selector::kNothing : step.Number(2);
  MustBeDone(world.stage->Pick(selector, id), selector, step);
}

void SetDate(StoryWorld& world, const StoryStep& step) {
  auto& box = As<DateBox>(world.FindControl(step.Text(1)), "date box");
  std::optional<Date> date;
  if (step.Text(2) != "empty") date = ToGregorian(*ParseSolar(step.Text(2)));
  MustBeDone(world.stage->SetDate(box, date), box, step);
}

void Check(StoryWorld& world, const StoryStep& step) {
  auto& box = As<CheckBox>(world.FindControl(step.Text(1)), "check box");
  MustBeDone(world.stage->Check(box, step.Text(2) == "on"), box, step);
}

void ChooseOption(StoryWorld& world, const StoryStep& step) {
  auto& option = As<OptionButton>(world.FindControl(step.Text(1)), "option button");
  MustBeDone(world.stage->Choose(option), option, step);
}

void ChooseEntry(StoryWorld& world, const StoryStep& step) {
  auto& list = As<ComboBox>(world.FindControl(step.Text(1)), "list");
  const auto& items = list.Items();
  const auto found =
      std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.text == step.Text(2); });
  if (found == items.end()) throw StoryFailure(list.Name() + " has no entry " + QuotedForStory(step.Text(2)));
  MustBeDone(world.stage->Choose(list, static_cast<int>(found - items.begin())), list, step);
}

Grid& GridOf(StoryWorld& world, const StoryStep& step) {
  return As<Grid>(world.FindControl(step.Text(1)), "grid");
}

void TypeCell(StoryWorld& world, const StoryStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.stage->TypeCell(grid, step.Number(2), step.Number(3), step.Text(4)), grid, step);
}

void MoveTo(StoryWorld& world, const StoryStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.stage->MoveTo(grid, step.Number(2), step.Number(3)), grid, step);
}

void DeleteRow(StoryWorld& world, const StoryStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.stage->DeleteRow(grid, step.Number(2)), grid, step);
}

void Sort(StoryWorld& world, const StoryStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.stage->ClickHeader(grid, step.Number(2)), grid, step);
}

void DoubleClick(StoryWorld& world, const StoryStep& step) {
  Grid& grid = GridOf(world, step);
  MustBeDone(world.stage->DoubleClick(grid, step.Number(2)), grid, step);
}

void RightClick(StoryWorld& world, const StoryStep& step) {
  Control& control = world.FindControl(step.Text(1));
  MustBeDone(world.stage->RightClick(control), control, step);
}

void PressKey(StoryWorld& world, const StoryStep& step) {
  Control& control = world.FindControl(step.Text(1));
  MustBeDone(world.stage->Press(control, *ParseKey(step.Text(2))), control, step);
}

void Tick(StoryWorld& world, const StoryStep&) {
  for (Control* const control : world.ActiveForm().Controls()) {
    if (auto* const timer = dynamic_cast<Timer*>(control)) timer->Fire();
  }
}

void Close(StoryWorld& world, const StoryStep&) { world.stage->Close(world.ActiveForm()); }

void TakePicture(StoryWorld& world, const StoryStep& step) { world.stage->TakePicture(step.Text(1)); }

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
    {"tick", Tick},
    {"close", Close},
    {"picture TEXT", TakePicture},
};

}  // namespace

std::span<const StepKind> ActionSteps() { return kKinds; }

}  // namespace koru
