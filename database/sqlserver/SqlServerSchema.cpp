#include "database/sqlserver/SqlServerSchema.h"

#include <algorithm>
#include <array>

#include "platform/sql/SqlLexer.h"
#include "platform/text/Errors.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

/// The object that a batch creates.
struct Creation {
  std::string kind;  ///< `table`, `index`, ...
  std::string name;
};

/// Parses `create <kind> <name>`, with optional comments before it. Both fields are empty for any other
/// batch, such as `create clustered index`.
Creation CreationOf(const SqlText& batch) {
  SqlLexer lexer(batch.Text());
  std::array<std::string, 3> words;
  for (std::string& word : words) {
    SqlToken token = lexer.Next();
    while (token.kind == SqlTokenKind::Comment) token = lexer.Next();
    word = lexer.TextOf(token);
  }
  static constexpr std::array<std::string_view, 3> kKinds{"table", "view", "procedure"};
  const bool isKnown = std::find(kKinds.begin(), kKinds.end(), words[1]) != kKinds.end();
  return words[0] == "create" && isKnown ? Creation{words[1], words[2]} : Creation{};
}

SqlText ObjectsQuery() {
  SqlText names;
  for (const SqlText& batch : SqlServerBatches()) {
    const Creation creation = CreationOf(batch);
    if (creation.name.empty()) continue;
    if (!names.Empty()) names += ",";
    names += SqlText("'") + SqlName(creation.name) + "'";
  }
  return SqlText("select name as Name from sys.objects where schema_id=schema_id() and name in (") + names +
         ") order by name";
}

}  // namespace

std::vector<std::string> SuiteTables() {
  std::vector<std::string> tables;
  for (const SqlText& batch : SqlServerBatches()) {
    const Creation creation = CreationOf(batch);
    if (creation.kind == "table") tables.push_back(creation.name);
  }
  return tables;
}

bool IsNumberedByServer(std::string_view table) {
  const std::vector<SqlText>& batches = SqlServerBatches();
  return std::any_of(batches.begin(), batches.end(), [&](const SqlText& batch) {
    const Creation creation = CreationOf(batch);
    return creation.kind == "table" && EqualsNoCase(creation.name, table) &&
           batch.Text().find(" identity(") != std::string::npos;
  });
}

std::vector<std::string> ExistingSuiteObjects(Database& database) {
  std::vector<std::string> names;
  Recordset found = database.Open(ObjectsQuery());
  for (; !found.AtEnd(); found.MoveNext()) names.push_back(found.Field("Name").Text());
  return names;
}

void RefuseSystemDatabase(Database& database) {
  static constexpr std::array<std::string_view, 4> kOwn{"master", "model", "msdb", "tempdb"};
  const std::string name =
      database.Open(SqlText("select db_name() as DatabaseName")).Field("DatabaseName").Text();
  const bool isOwn =
      std::any_of(kOwn.begin(), kOwn.end(), [&](std::string_view own) { return EqualsNoCase(own, name); });
  if (!isOwn) return;
  throw InputError(
      "«" + name +
      "» پايگاه دادة خود سرور است و چيزي در آن نوشته نشد. پايگاه داده را با Initial Catalog در رشته "
      "اتصال نام ببريد.");
}

void CreateSqlServerSchema(Database& database, const SchemaProgress& progress) {
  RefuseSystemDatabase(database);
  std::string there;
  for (const std::string& name : ExistingSuiteObjects(database)) there += (there.empty() ? "" : "، ") + name;
  if (!there.empty()) {
    throw InputError("اين پايگاه داده خالي نيست و چيزي در آن نوشته نشد. در آن هست: " + there);
  }
  const std::vector<SqlText>& batches = SqlServerBatches();
  std::size_t done = 0;
  for (const SqlText& batch : batches) {
    database.Open(batch);
    ++done;
    if (progress) progress(done, batches.size());
  }
}

}  // namespace koru
