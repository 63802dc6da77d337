#include <algorithm>
#include <filesystem>
#include <string_view>

#include "adapters/xlsx/PackedFile.h"
#include "platform/text/Text.h"
#include "scenario/ScenarioWorld.h"
#include "scenario/StepKind.h"
#include "scenario/StepRows.h"

namespace koru {
namespace {

void ExpectFocus(ScenarioWorld& world, const ScenarioStep& step) {
  const Form& form = world.ActiveForm();
  const std::string found = form.Focus() == nullptr ? "nothing" : form.Focus()->Name();
  if (!EqualsNoCase(step.Text(2), found)) Differs("focus", step.Text(2), found);
  const std::string difference = world.driver->FocusDifference(form);
  if (!difference.empty()) throw ScenarioFailure(found + ": " + difference);
}

void ExpectTitle(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("title", QuotedForScenario(step.Text(2)), QuotedForScenario(world.ActiveForm().Caption()));
}

void ExpectForm(ScenarioWorld& world, const ScenarioStep& step) {
  const Form* const form = world.FindForm(step.Text(2));
  std::string found = "unloaded";
  if (form != nullptr) found = form->Visible() ? "shown" : "hidden";
  MustBe(step.Text(2), step.Text(3), found);
  if (step.words.size() > 4)
    MustBe(step.Text(2), step.Text(4), world.screen.IsModal(*form) ? "modal" : "modeless");
}

void ExpectWindow(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("window with the keyboard", step.Text(2), world.driver->WindowWithKeyboard());
}

void ExpectPart(ScenarioWorld& world, const ScenarioStep& step) {
  const std::optional<std::string> shown = world.driver->TextShown(step.Text(2));
  if (!shown) throw ScenarioFailure("the window with the keyboard has no " + step.Text(2));
  MustBe(step.Text(2), QuotedForScenario(step.Text(3)), QuotedForScenario(*shown));
}

void ExpectResult(ScenarioWorld& world, const ScenarioStep& step) {
  if (!world.viewResult) throw ScenarioFailure("no view has returned");
  MustBe("result of view", step.Text(2), *world.viewResult ? "true" : "false");
}

void ExpectMode(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("mode", step.Text(2), std::to_string(static_cast<int>(world.counting->Shared().DocMode)));
}

void ExpectCursor(ScenarioWorld& world, const ScenarioStep& step) {
  MustBe("cursor", step.Text(2), world.screen.CurrentCursor() == Cursor::Normal ? "normal" : "hourglass");
}

ScenarioWord FieldWord(const Value& field) {
  if (field.IsNull()) return {"NULL", false};
  return {field.Text(), field.IsText()};
}

void ExpectSql(ScenarioWorld& world, const ScenarioStep& step) {
  StepRows found;
  for (Recordset records = world.Sql().Run(step.Text(2)); !records.AtEnd(); records.MoveNext()) {
    auto& row = found.emplace_back();
    for (std::size_t column = 0; column < records.Columns().size(); ++column)
      row.push_back(FieldWord(records.Field(column)));
  }
  RowsMustBe(step.rows, found, "row");
}

void ExpectStatements(ScenarioWorld& world, const ScenarioStep& step) {
  StepRows found;
  for (const std::string& statement : world.log.Statements()) found.push_back({{statement, true}});
  RowsMustBe(step.rows, found, "statement");
}

/// The rows of a workbook's sheet without the header.
std::size_t RowsOfWorkbook(const std::filesystem::path& file) {
  std::string sheet;
  const bool whole = ReadPackedFile(file.string(), [&](std::string_view part, std::string_view piece) {
    if (part == "xl/worksheets/sheet1.xml") sheet += piece;
  });
  if (!whole) throw ScenarioFailure("the workbook is not whole");
  constexpr std::string_view kRow = "<row ";
  std::size_t rows = 0;
  for (std::size_t at = sheet.find(kRow); at != std::string::npos; at = sheet.find(kRow, at + 1)) ++rows;
  return rows == 0 ? 0 : rows - 1;
}

void ExpectWorkbooks(ScenarioWorld& world, const ScenarioStep& step) {
  std::vector<std::filesystem::path> files;
  if (std::filesystem::exists(world.Workbooks())) {
    for (const auto& entry : std::filesystem::directory_iterator(world.Workbooks()))
      files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());  // they are numbered in the order in which they were made
  std::string found;
  for (const auto& file : files) found += " " + std::to_string(RowsOfWorkbook(file));
  std::string expected;
  for (std::size_t i = 2; i < step.words.size() && step.Text(2) != "none"; ++i)
    expected += " " + step.Text(i);
  MustBe("rows of the workbooks", expected.empty() ? "none" : expected.substr(1),
         found.empty() ? "none" : found.substr(1));
}

constexpr StepKind kKinds[] = {
    {"expect focus NAME", ExpectFocus},
    {"expect title TEXT", ExpectTitle},
    {"expect form NAME shown|hidden|unloaded", ExpectForm},
    {"expect form NAME shown modal|modeless", ExpectForm},
    {"expect window NAME", ExpectWindow},
    {"expect part NAME TEXT", ExpectPart},
    {"expect result true|false", ExpectResult},
    {"expect mode NUMBER", ExpectMode},
    {"expect cursor normal|hourglass", ExpectCursor},
    {"expect workbooks NUMBER...", ExpectWorkbooks},
    {"expect workbooks none", ExpectWorkbooks},
    {"expect sql TEXT ROWS", ExpectSql},
    {"expect statements ROWS", ExpectStatements},
};

}  // namespace

std::span<const StepKind> OutcomeSteps() { return kKinds; }

}  // namespace koru
