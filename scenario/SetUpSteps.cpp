#include <concepts>
#include <functional>
#include <limits>
#include <map>

#include "platform/text/Date.h"
#include "platform/text/Text.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

void MakeDatabase(ScenarioWorld& world, const ScenarioStep& step) {
  using Contents = ScenarioWorld::Contents;
  world.MakeDatabase(step.Text(1) == "sample" ? Contents::Sample : Contents::Empty);
}

void RunSql(ScenarioWorld& world, const ScenarioStep& step) { world.Sql().Run(step.Text(1)); }

void SetToday(ScenarioWorld& world, const ScenarioStep& step) {
  world.clock.Set(ToGregorian(*ParseSolar(step.Text(1))));
}

void PassMinutes(ScenarioWorld& world, const ScenarioStep& step) {
  world.clock.Pass(std::chrono::minutes(step.Number(1)));
}

std::int16_t Narrow(const ScenarioStep& step) {
  const std::int32_t number = step.Number(2);
  if (number < std::numeric_limits<std::int16_t>::min() ||
      number > std::numeric_limits<std::int16_t>::max()) {
    throw ScenarioFailure("the property " + step.Text(1) + " holds 16 bits only");
  }
  return static_cast<std::int16_t>(number);
}

void SetProperty(ScenarioWorld& world, const ScenarioStep& step) {
  comInvCounting& counting = *world.counting;
  const std::string& name = step.Text(1);
  if (EqualsNoCase(name, "UserID")) return counting.SetUserID(step.Number(2));
  if (EqualsNoCase(name, "AccPeriodSpecID")) return counting.SetAccPeriodSpecID(step.Number(2));
  if (EqualsNoCase(name, "EmployeeID")) return counting.SetEmployeeID(Narrow(step));
  if (EqualsNoCase(name, "PositionID")) return counting.SetPositionID(Narrow(step));
  if (EqualsNoCase(name, "ForcedReceiptID")) return counting.SetForcedReceiptID(Narrow(step));
  throw ScenarioFailure("the control has no property " + name + " that a scenario can set");
}

void SetUser(ScenarioWorld& world, const ScenarioStep& step) { world.counting->SetUserID(step.Number(1)); }

void SetConnection(ScenarioWorld& world, const ScenarioStep& step) {
  world.counting->SetOLEConnectionString(step.Text(1));
}

void Unregister(ScenarioWorld& world, const ScenarioStep& step) { world.components.Unregister(step.Text(1)); }

void FailStatement(ScenarioWorld& world, const ScenarioStep& step) {
  if (step.Number(2) < 1) throw ScenarioFailure("statements count from 1, the next one");
  world.log.FailStatement(step.Number(2), step.Text(3));
}

void PutFile(ScenarioWorld& world, const ScenarioStep& step) {
  world.tables.Put(step, world.Folder(), world.Workbooks());
}

void ForgetStatements(ScenarioWorld& world, const ScenarioStep&) { world.log.Forget(); }

constexpr StepKind kKinds[] = {
    {"database sample|empty", MakeDatabase},
    {"sql TEXT", RunSql},
    {"today DATE", SetToday},
    {"pass NUMBER minutes", PassMinutes},
    {"user NUMBER", SetUser},
    {"property NAME NUMBER", SetProperty},
    {"connection TEXT", SetConnection},
    {"unregister NAME", Unregister},
    {"fail statement NUMBER TEXT", FailStatement},
    {"forget statements", ForgetStatements},
    {"file TEXT ROWS", PutFile},
};

}  // namespace

std::span<const StepKind> SetUpSteps() { return kKinds; }

}  // namespace koru
