#pragma once

#include <string>

#include "adapters/sqlite/SqliteConnector.h"
#include "control/services/SharedState.h"
#include "documents/TemporarySave.h"
#include "lines/CountingLines.h"
#include "lines/LineEditing.h"
#include "lines/SystemQuantity.h"
#include "platform/Errors.h"
#include "tests/documents/SmallCountingForm.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"

namespace koru::bench {

/// No file is there and no spreadsheet program: nothing that is measured asks for either.
class NoMachine : public FileSystem, public SpreadsheetStarter {
 public:
  [[nodiscard]] bool FileExists(const std::string& /*path*/) const override { return false; }
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override { throw InputError("no spreadsheets"); }
};

/// What a counting form is made of, without a window, at a database file: user 1, who holds all rights.
class Desk {
 public:
  explicit Desk(const std::string& file) {
    person.RegisterIn(components);
    shared.data.SetConnectionString("Provider=SQLite;Data Source=" + file);
    shared.user.userID = 1;
    shared.DocMode = DocumentMode::Editing;
    lines.SetUp();
    screen.Show(form, false);
  }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk() = default;

  ComponentRegistry components;
  test::FakeMessages person;
  test::FakeScreen screen;
  test::FixedClock clock{Date{std::chrono::year{2026} / 3 / 20}};
  NoMachine machine;
  SqliteConnector sqlite;
  SharedState shared{{.databases = sqlite,
                      .components = components,
                      .screen = screen,
                      .clock = clock,
                      .files = machine,
                      .spreadsheets = machine}};
  SmallCountingForm form{screen};
  TextBox txtTotalBelowValue{form, "txtTotalBelowValue"};
  TextBox txtTotalAboveValue{form, "txtTotalAboveValue"};
  TextBox txtTotalValue{form, "txtTotalValue"};
  CountingLines lines{form.flexDetail, txtTotalBelowValue, txtTotalAboveValue, txtTotalValue, shared.data};
  LineEditing editing{form.flexDetail, lines, shared.messages, shared.DocMode};
  SystemQuantity quantity{form.flexDetail, form.gmpInventory, form.gdpFromDate,
                          form.gdpToDate,  form.pgbStatus,    screen,
                          shared.data,     editing,           lines};
  TemporarySave save{form.Controls(), shared, [] {}};
};

}  // namespace koru::bench
