#include <algorithm>
#include <cstdio>

#include "platform/text/Text.h"
#include "scenario/ControlWords.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"

namespace koru {
namespace {

void MustShowTheSame(ScenarioWorld& world, const Control& control) {
  const std::string difference = world.driver->Difference(control);
  if (!difference.empty()) throw ScenarioFailure(control.Name() + ": " + difference);
}

void ExpectContent(ScenarioWorld& world, const ScenarioStep& step) {
  const Control& control = world.FindControl(step.Text(1));
  const auto found = ContentOf(control);
  if (!found) throw ScenarioFailure(control.Name() + " holds nothing that can be compared");
  ScenarioWord expected = step.words[2];
  if (const auto day = ParseSolar(expected.text); day && !expected.quoted) expected.text = SolarText(*day);
  if (*found != expected) Differs(control.Name(), Written(expected), Written(*found));
  MustShowTheSame(world, control);
}

bool HasState(const Control& control, const std::string& state) {
  if (state == "enabled") return control.Enabled();
  if (state == "disabled") return !control.Enabled();
  if (state == "visible") return control.Visible();
  if (state == "invisible") return !control.Visible();
  return state == "locked" ? IsLocked(control) : !IsLocked(control);
}

void ExpectState(ScenarioWorld& world, const ScenarioStep& step) {
  const std::string& state = step.words.back().text;
  for (std::size_t i = 1; i + 1 < step.words.size(); ++i) {
    const Control& control = world.FindControl(step.Text(i));
    if (!HasState(control, state)) throw ScenarioFailure(control.Name() + " is not " + state);
    MustShowTheSame(world, control);
  }
}

/// The cell's text; the scenario's row and column must exist.
std::string Cell(const Grid& grid, int row, int col) {
  if (row < 0 || row >= grid.Rows() || col < 0 || col >= grid.Cols()) {
    throw ScenarioFailure(grid.Name() + " has no cell in row " + std::to_string(row) + ", column " +
                          std::to_string(col));
  }
  return std::string(grid.TextMatrix(row, col));
}

void CellMustBe(const Grid& grid, int row, int col, const std::string& expected) {
  const std::string what = grid.Name() + " row " + std::to_string(row) + ", column " + std::to_string(col);
  MustBe(what, QuotedForScenario(expected), QuotedForScenario(Cell(grid, row, col)));
}

Grid& GridOf(ScenarioWorld& world, const ScenarioStep& step) {
  return As<Grid>(world.FindControl(step.Text(2)), "grid");
}

void ExpectCell(ScenarioWorld& world, const ScenarioStep& step) {
  const Grid& grid = GridOf(world, step);
  CellMustBe(grid, step.Number(3), step.Number(4), step.Text(5));
  MustShowTheSame(world, grid);
}

void ExpectRow(ScenarioWorld& world, const ScenarioStep& step) {
  const Grid& grid = GridOf(world, step);
  const int cols = static_cast<int>(step.words.size()) - 4;
  MustBe(grid.Name() + " columns", std::to_string(cols), std::to_string(grid.Cols()));
  for (int col = 0; col < cols; ++col) {
    CellMustBe(grid, step.Number(3), col, step.Text(static_cast<std::size_t>(col) + 4));
  }
  MustShowTheSame(world, grid);
}

void ExpectColumn(ScenarioWorld& world, const ScenarioStep& step) {
  const Grid& grid = GridOf(world, step);
  const int rows = static_cast<int>(step.words.size()) - 4;
  MustBe(grid.Name() + " rows", std::to_string(rows), std::to_string(grid.Rows() - 1));
  for (int row = 1; row <= rows; ++row) {
    CellMustBe(grid, row, step.Number(3), step.Text(static_cast<std::size_t>(row) + 3));
  }
  MustShowTheSame(world, grid);
}

void ExpectRows(ScenarioWorld& world, const ScenarioStep& step) {
  const Grid& grid = GridOf(world, step);
  MustBe(grid.Name() + " rows", step.Text(3), std::to_string(grid.Rows() - 1));
  MustShowTheSame(world, grid);
}

void ExpectColor(ScenarioWorld& world, const ScenarioStep& step) {
  const Grid& grid = GridOf(world, step);
  static_cast<void>(Cell(grid, step.Number(3), 0));
  constexpr std::size_t kDigits = 6;
  char digits[kDigits + 3];
  std::snprintf(digits, sizeof digits, "%06X",
                static_cast<unsigned>(grid.RowBackColor(step.Number(3)) & 0xFFFFFFU));
  MustBe(grid.Name() + " color of row " + step.Text(3), step.Text(4), digits);
}

constexpr StepKind kKinds[] = {
    {"expect cell NAME NUMBER NUMBER TEXT", ExpectCell},
    {"expect row NAME NUMBER TEXT...", ExpectRow},
    {"expect column NAME NUMBER TEXT...", ExpectColumn},
    {"expect rows NAME NUMBER", ExpectRows},
    {"expect color NAME NUMBER TEXT", ExpectColor},
    {"expect NAME... enabled|disabled|editable|locked|visible|invisible", ExpectState},
    {"expect NAME TEXT|NUMBER|DATE|nothing|empty|on|off", ExpectContent},
};

}  // namespace

std::span<const StepKind> ControlExpectationSteps() { return kKinds; }

}  // namespace koru
