#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

void Start(ScenarioWorld& world, bool withDatabase) {
  if (!world.driver->StartProgram(world.StartOfProgram(withDatabase)))
    throw ScenarioFailure("the program has a window alone, and so needs windows (--desktop)");
}

void StartProgram(ScenarioWorld& world, const ScenarioStep&) { Start(world, false); }

void StartWithDatabase(ScenarioWorld& world, const ScenarioStep&) { Start(world, true); }

void ClickPart(ScenarioWorld& world, const ScenarioStep& step) {
  if (world.driver->ClickPart(step.Text(2))) return;
  throw ScenarioFailure("the user cannot click " + step.Text(2) +
                        ": the window with the keyboard has no such part that can be used");
}

constexpr StepKind kKinds[] = {
    {"program", StartProgram},
    {"program database", StartWithDatabase},
    {"click part NAME", ClickPart},
};

}  // namespace

std::span<const StepKind> ProgramSteps() { return kKinds; }

}  // namespace koru
