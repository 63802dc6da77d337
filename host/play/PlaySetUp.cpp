#include <concepts>
#include <functional>
#include <limits>
#include <map>

#include "host/play/StepKind.h"
#include "host/play/StoryWorld.h"
#include "platform/Date.h"
#include "platform/Text.h"

namespace koru {
namespace {

void MakeDatabase(StoryWorld& world, const StoryStep& step) {
  using Contents = StoryWorld::Contents;
  world.MakeDatabase(step.Text(1) == "sample" ? Contents::Sample : Contents::Empty);
}

void RunSql(StoryWorld& world, const StoryStep& step) { world.Sql().Run(step.Text(1)); }

void SetToday(StoryWorld& world, const StoryStep& step) {
  world.clock.Set(ToGregorian(*ParseSolar(step.Text(1))));
}

std::int16_t Narrow(const StoryStep& step) {
  const std::int32_t number = step.Number(2);
  if (number < std::numeric_limits<std::int16_t>::min() ||
      number > std::numeric_limits<std::int16_t>::max()) {
    throw StoryFailure("the property " + step.Text(1) + " holds 16 bits only");
  }
  return static_cast<std::int16_t>(number);
}

void SetProperty(StoryWorld& world, const StoryStep& step) {
  comInvCounting& counting = world.counting;
  const std::string& name = step.Text(1);
  if (EqualsNoCase(name, "UserID")) return counting.SetUserID(step.Number(2));
  if (EqualsNoCase(name, "AccPeriodSpecID")) return counting.SetAccPeriodSpecID(step.Number(2));
  if (EqualsNoCase(name, "EmployeeID")) return counting.SetEmployeeID(Narrow(step));
  if (EqualsNoCase(name, "PositionID")) return counting.SetPositionID(Narrow(step));
  if (EqualsNoCase(name, "ForcedReceiptID")) return counting.SetForcedReceiptID(Narrow(step));
  throw StoryFailure("the control has no property " + name + " that a story can set");
}

void SetUser(StoryWorld& world, const StoryStep& step) { world.counting.SetUserID(step.Number(1)); }

void SetConnection(StoryWorld& world, const StoryStep& step) {
  world.counting.SetOLEConnectionString(step.Text(1));
}

void Unregister(StoryWorld& world, const StoryStep& step) { world.components.Unregister(step.Text(1)); }

void FailStatement(StoryWorld& world, const StoryStep& step) {
  if (step.Number(2) < 1) throw StoryFailure("statements count from 1, the next one");
  world.log.FailStatement(step.Number(2), step.Text(3));
}

void ForgetStatements(StoryWorld& world, const StoryStep&) { world.log.Forget(); }

constexpr StepKind kKinds[] = {
    {"database sample|empty", MakeDatabase},
    {"sql TEXT", RunSql},
    {"today DATE", SetToday},
    {"user NUMBER", SetUser},
    {"property NAME NUMBER", SetProperty},
    {"connection TEXT", SetConnection},
    {"unregister NAME", Unregister},
    {"fail statement NUMBER TEXT", FailStatement},
    {"forget statements", ForgetStatements},
};

}  // namespace

std::span<const StepKind> SetUpSteps() { return kKinds; }

}  // namespace koru
