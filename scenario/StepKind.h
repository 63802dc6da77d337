#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "scenario/Scenario.h"

namespace koru {

class ScenarioWorld;

/// A step did not do what the scenario says. what() is the sentence without file and line.
class ScenarioFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A kind of step: its pattern (see ParseScenario) and its work, which throws ScenarioFailure when the step
/// does not do what the scenario says.
struct StepKind {
  std::string_view pattern;
  void (*run)(ScenarioWorld& world, const ScenarioStep& step);
};

/// Set-up: database, user, date, properties, failures to come.
[[nodiscard]] std::span<const StepKind> SetUpSteps();
/// Use of the program koru-counting, whose window is no form.
[[nodiscard]] std::span<const StepKind> ProgramSteps();
/// Actions of the host and the user.
[[nodiscard]] std::span<const StepKind> ActionSteps();
/// Expectations outside the controls: forms, results, statements, tables.
[[nodiscard]] std::span<const StepKind> OutcomeSteps();
/// Expectations on the filter of the lines and on how far a counting is.
[[nodiscard]] std::span<const StepKind> LineSteps();
/// Steps on the report that is shown.
[[nodiscard]] std::span<const StepKind> ReportSteps();
/// Counting on the floor: what the desk and the devices do, and what they show. None without KORU_FLOOR.
[[nodiscard]] std::span<const StepKind> FloorSteps();
/// Expectations on controls. Must be the last in the list: their patterns also match other expectations.
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
