#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/HostServices.h"
#include "platform/ports/PropertyBag.h"
#include "tests/support/BatchingDatabase.h"
#include "tests/support/FailingDatabase.h"
#include "tests/support/FakeMessages.h"
#include "tests/support/FakeScreen.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingDatabase.h"

namespace koru::test {

using Texts = std::vector<std::string>;

/// A file system with the files that the test lists.
class ListedFiles : public FileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::string& path) const override;
  Texts paths;
};

/// A machine without a spreadsheet program.
class NoSpreadsheets : public SpreadsheetStarter {
 public:
  [[nodiscard]] std::unique_ptr<Spreadsheet> NewWorkbook() override;
};

/// Refuses every connection with a DatabaseError.
class NoDatabases : public DatabaseConnector {
 public:
  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;
};

/// Whether a statement reads the stored counting to compare it with the one on the form.
[[nodiscard]] bool LooksForChanges(const std::string& statement);

/// The host of a component under test. Statements are recorded, and one of them can be made to fail; messages
/// are read and questions answered by `messages`; forms are shown on `screen` without a display; today is 20
/// March 2024 unless the test sets `clock`. Sibling components other than the message are the test's to
/// register.
class ComponentFixture : public ControlHost {
 public:
  /// `databases` must outlive the fixture.
  explicit ComponentFixture(DatabaseConnector& databases);
  ComponentFixture(const ComponentFixture&) = delete;
  ComponentFixture& operator=(const ComponentFixture&) = delete;
  ~ComponentFixture() override = default;

  /// What a host hands to the component; the second one shows forms on another screen.
  [[nodiscard]] HostServices Services() { return ServicesOn(screen); }
  [[nodiscard]] HostServices ServicesOn(Screen& otherScreen);

  [[nodiscard]] koru::Font AmbientFont() const override { return {"Tahoma", 9, false, false}; }
  void PropertyChanged(std::string_view key) override { reported.emplace_back(key); }

  /// The statements since the last call, the one that failed included; without those that look for changes
  /// by other stations, which an embedded file makes unnecessary as long as nobody else writes.
  Texts NewStatements();
  /// The texts of the messages and questions since the last call.
  Texts NewMessages();
  /// The same as "title: text".
  Texts NewTitledMessages();

  BatchingConnector server;  ///< the database as a server that takes `server.trips.statementsPerTrip`
  FailingConnector failing{server};
  RecordingConnector recording{failing};
  ComponentRegistry components;
  FakeMessages messages;
  FakeScreen screen;
  FixedClock clock{Date{std::chrono::year{2024} / 3 / 20}};
  ListedFiles files;
  NoSpreadsheets spreadsheets;
  Texts reported;  ///< the properties whose change the control has reported
};

/// A host where every connection is refused.
class NoDatabaseFixture : public ComponentFixture {
 public:
  NoDatabaseFixture() : ComponentFixture(noDatabases_) {}

 private:
  NoDatabases noDatabases_;
};

}  // namespace koru::test
