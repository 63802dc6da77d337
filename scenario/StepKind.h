#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "scenario/Scenario.h"

namespace koru {

class ScenarioWorld;

/// A step did not go as the scenario says. what() is the sentence without the place.
class ScenarioFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A kind of step: how a scenario writes it, and what it does. It throws ScenarioFailure when the scenario is
/// wrong there.
struct StepKind {
  std::string_view pattern;
  void (*play)(ScenarioWorld& world, const ScenarioStep& step);
};

/// What stands before the first form is opened: database, user, day, properties, failures to come.
[[nodiscard]] std::span<const StepKind> SetUpSteps();
/// What the host and the person do.
[[nodiscard]] std::span<const StepKind> ActionSteps();
/// What must then stand outside of the controls: forms, results, statements, tables.
[[nodiscard]] std::span<const StepKind> OutcomeSteps();
/// The report that is shown.
[[nodiscard]] std::span<const StepKind> ReportSteps();
/// What must then stand in the controls. These come last: their patterns also match what the ones before
/// mean.
[[nodiscard]] std::span<const StepKind> ControlExpectationSteps();

/// Throws the failure of an expectation.
[[noreturn]] inline void Differs(const std::string& what, const std::string& expected,
                                 const std::string& found) {
  throw ScenarioFailure(what + ": expected " + expected + ", found " + found);
}

inline void MustBe(const std::string& what, const std::string& expected, const std::string& found) {
  if (expected != found) Differs(what, expected, found);
}

}  // namespace koru
