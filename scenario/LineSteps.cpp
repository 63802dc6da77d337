#include <string>

#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

frmInvCounting& CountingForm(ScenarioWorld& world) {
  frmInvCounting* const form = world.counting->CountingForm();
  if (form == nullptr) throw ScenarioFailure("no counting form is loaded");
  return *form;
}

/// On the forms, the lines are shown that fit the filter.
void ExpectShown(ScenarioWorld& world, const ScenarioStep& step) {
  frmInvCounting& form = CountingForm(world);
  const std::optional<int> inWindow = world.driver->RowsShown(form.flexDetail);
  const int shown = inWindow ? *inWindow : static_cast<int>(form.Finder().RowsThatFit().size());
  MustBe("lines shown", step.Text(2), std::to_string(shown));
}

void ExpectProgress(ScenarioWorld& world, const ScenarioStep& step) {
  const LineCounts& counts = CountingForm(world).Finder().Counts();
  MustBe("counted lines", step.Text(2), std::to_string(counts.counted));
  MustBe("agreed lines", step.Text(3), std::to_string(counts.agreed));
  MustBe("accepted lines", step.Text(4), std::to_string(counts.Accepted()));
  MustBe("lines left", step.Text(5), std::to_string(counts.Left()));
}

constexpr StepKind kKinds[] = {
    {"expect shown NUMBER", ExpectShown},
    {"expect progress NUMBER NUMBER NUMBER NUMBER", ExpectProgress},
};

}  // namespace

std::span<const StepKind> LineSteps() { return kKinds; }

}  // namespace koru
