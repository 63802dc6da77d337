// Generated statements through the embedded adapter, in snapshots and outside of them, against SQLite running
// a plain translation on a file of its own.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "adapters/sqlite/CreateDatabaseFile.h"
#include "adapters/sqlite/SqliteConnection.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/Schema.h"
#include "platform/text/Numbers.h"
#include "tests/campaigns/GeneratedStatements.h"
#include "tests/campaigns/Seeds.h"
#include "tests/support/DumpTables.h"
#include "tests/support/TemporaryFolder.h"

namespace koru::test {
namespace {

constexpr int kStatements = 5000;
constexpr int kStatementsOfFile = 500;

using Rows = std::vector<std::string>;

/// Sorted where the statement leaves the order free, or gives two rows the same place: both orders are right.
Rows Comparable(Rows rows, const GeneratedStatement& statement) {
  if (!statement.isOrdered) std::sort(rows.begin(), rows.end());
  return rows;
}

Rows Sent(Database& database, const std::string& statement) {
  Rows rows;
  for (Recordset records = database.Open(SqlText() + Typed(statement)); !records.AtEnd();
       records.MoveNext()) {
    std::string& row = rows.emplace_back();
    for (std::size_t column = 0; column < records.Columns().size(); ++column) {
      const Value value = records.Field(column);
      row += (value.IsNull() ? std::string("NULL") : value.Text()) + "|";
    }
  }
  return rows;
}

Rows Plain(SqliteConnection& connection, const std::string& statement) {
  Rows rows;
  SqliteStatement prepared = connection.Prepare(statement);
  while (prepared.Step()) {
    std::string& row = rows.emplace_back();
    for (int column = 0; column < prepared.ColumnCount(); ++column) {
      const bool isReal = prepared.ColumnType(column) == 2;  // SQLITE_FLOAT
      row += prepared.IsNull(column) ? "NULL"
             : isReal                ? NumberText(prepared.Real(column))
                                     : std::string(prepared.Text(column));
      row += "|";
    }
  }
  return rows;
}

/// Both files begin with the same rows; answers how many rows were read.
std::size_t CompareOnFiles(unsigned seed) {
  const TemporaryFolder folder;
  const std::string file = folder.File("sent.koru");
  CreateDatabaseFile(file, EmbeddedSchema(),
                     [&](SqliteConnection& connection) { connection.Execute(GeneratedRows(seed)); });
  std::filesystem::copy_file(file, folder.File("plain.koru"));
  const auto sent = SqliteConnector().Connect(EmbeddedConnectionText(file));
  SqliteConnection plain(folder.File("plain.koru"), SqliteConnection::Mode::Existing,
                         std::chrono::seconds(0));
  StatementGenerator generator(seed);
  std::unique_ptr<ReadSnapshot> snapshot;
  std::size_t rows = 0;
  for (int count = 0; count < kStatementsOfFile; ++count) {
    if (count % 20 == 10) snapshot = sent->BeginReadSnapshot();
    if (count % 20 == 0) snapshot.reset();
    const GeneratedStatement statement = generator.Next();
    SCOPED_TRACE("statement " + std::to_string(count) + ": " + statement.sent);
    const Rows expected = Comparable(Plain(plain, statement.plain), statement);
    EXPECT_EQ(Comparable(Sent(*sent, statement.sent), statement), expected);
    rows += expected.size();
    if (testing::Test::HasFailure()) return rows;
  }
  snapshot.reset();
  EXPECT_EQ(DumpTables(*sent),
            DumpTables(*SqliteConnector().Connect(EmbeddedConnectionText(folder.File("plain.koru")))));
  return rows;
}

TEST(GeneratedStatementsTest, Find_and_write_the_rows_that_sqlite_finds_and_writes_by_a_plain_translation) {
  std::size_t rows = 0;
  const unsigned files =
      RunSeeds(kStatements / kStatementsOfFile, [&](unsigned seed) { rows += CompareOnFiles(seed); });
  std::cout << kStatementsOfFile << " statements each, " << rows << " rows\n";
  EXPECT_GT(rows, 500U * files) << "most statements find nothing";
}

}  // namespace
}  // namespace koru::test
