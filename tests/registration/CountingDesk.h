#pragma once

#include <functional>
#include <string>
#include <vector>

#include "services/SharedState.h"
#include "tests/registration/SmallCountingForm.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingDatabase.h"
#include "tests/support/TestDatabase.h"

namespace koru {

using Texts = std::vector<std::string>;

/// No file is there, and no spreadsheet program: the commands under test ask for neither.
class EmptyMachine : public FileSystem, public SpreadsheetStarter {
 public:
  [[nodiscard]] bool FileExists(const std::string& path) const override;
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override;
};

/// One line as a person sees it in the grid; what is not named stays empty.
struct GridLine {
  std::string barcode;
  std::string name = "كالا";
  std::string unit = "4";
  std::string first = {};
  std::string second = {};
  std::string third = {};
  std::string accepted = {};
  std::string system = {};
  std::string shortage = {};
  std::string surplus = {};
  std::string rate = {};
};

/// User 7, who holds all rights, before an empty form and a database of his own.
class CountingDesk {
 public:
  CountingDesk();

  /// Store 3, counters 11, none and 13, confirmer 14, the days, notes and a manual number.
  void FillHeader();
  void AddLine(const GridLine& line);
  /// Stores a temporary counting of key 1 without lines and shows its key.
  void StoreCounting();
  /// Stores a line of counting 1; `contradiction` and `scaleID` are numbers or NULL.
  void StoreLine(int row, const std::string& barcode, const std::string& contradiction,
                 const std::string& scaleID = "4");
  void Grant(int permission);
  void Revoke(int permission);

  /// Statements that nobody records.
  void Execute(const std::string& sql) { database.Execute(sql); }
  /// Rows as "field|field", NULL as "NULL".
  [[nodiscard]] Texts Rows(const std::string& sql);
  [[nodiscard]] std::string Dump() { return database.Dump(); }

  /// What reached the database since StartRecording, in the suite's dialect, without the questions for
  /// rights.
  [[nodiscard]] Texts Sent() const;
  void StartRecording() { recording.ForgetStatements(); }
  /// What was shown to the user, as "title: text".
  [[nodiscard]] Texts Shown() const;

  /// Counts its calls and remembers how far the command was.
  [[nodiscard]] std::function<void()> Locking();
  int lockings = 0;
  DocumentMode modeWhenLocked = DocumentMode::Empty;
  std::size_t sentWhenLocked = 0;

  test::TestDatabase database;
  test::RecordingConnector recording{database.Connector()};
  test::FailingConnector failing{recording};
  ComponentRegistry components;
  test::FakeMessages person;
  test::FakeScreen screen;
  test::FixedClock clock{Date{std::chrono::year{2024} / 3 / 20}};
  EmptyMachine machine;
  SharedState shared{{.databases = failing,
                      .components = components,
                      .screen = screen,
                      .clock = clock,
                      .files = machine,
                      .spreadsheets = machine}};
  SmallCountingForm form{screen};
};

/// `piece` so many times.
[[nodiscard]] std::string Repeat(const std::string& piece, int times);

}  // namespace koru
