#include "tests/support/ComponentFixture.h"

#include <algorithm>

#include "platform/sql/DatabaseError.h"
#include "platform/text/Errors.h"

namespace koru::test {

bool ListedFiles::FileExists(const std::string& path) const {
  return std::find(paths.begin(), paths.end(), path) != paths.end();
}

std::unique_ptr<Spreadsheet> NoSpreadsheets::NewWorkbook() { throw InputError("no spreadsheet program"); }

std::unique_ptr<Database> NoDatabases::Connect(const std::string& /*connectionText*/) {
  throw DatabaseError("no such database", 1, {});
}

ComponentFixture::ComponentFixture(DatabaseConnector& databases) : server(databases) {
  messages.RegisterIn(components);
}

HostServices ComponentFixture::ServicesOn(Screen& otherScreen) {
  return {.databases = recording,
          .components = components,
          .screen = otherScreen,
          .clock = clock,
          .files = files,
          .spreadsheets = spreadsheets};
}

bool LooksForChanges(const std::string& statement) {
  return statement.starts_with("Select * from tblInventoryCounting Where ID = ") ||
         statement.starts_with("Select * from tblInventoryCountingDetail Where CountingID = ") ||
         statement.starts_with("Select Code from tblInventoryCounting Where ID = ");
}

Texts ComponentFixture::NewStatements() {
  Texts statements = recording.Statements();
  std::erase_if(statements, LooksForChanges);
  recording.ForgetStatements();
  return statements;
}

Texts ComponentFixture::NewMessages() {
  Texts texts = messages.Texts();
  messages.Forget();
  return texts;
}

Texts ComponentFixture::NewTitledMessages() {
  Texts texts;
  for (const auto& message : messages.Shown()) texts.push_back(message.title + ": " + message.text);
  messages.Forget();
  return texts;
}

}  // namespace koru::test
