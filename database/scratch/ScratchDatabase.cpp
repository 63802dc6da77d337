#include "database/scratch/ScratchDatabase.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/sqlserver/CopyRows.h"
#include "database/sqlserver/EmptyScratchDatabase.h"
#include "database/sqlserver/SqlServerSchema.h"
#include "platform/sql/SqlLexer.h"
#include "platform/text/Text.h"

namespace koru {
namespace {

using Way = ScratchRoute::Way;

std::unique_ptr<DatabaseConnector> ConnectorOf(Way way) {
  if (way == Way::EmbeddedFile) return std::make_unique<SqliteConnector>();
  return std::make_unique<OdbcConnector>();
}

std::string TextOf(const ScratchRoute& route, const std::string& file) {
  if (route.way == Way::Server) return route.server;
  return route.way == Way::ThroughOdbc ? EmbeddedThroughOdbcText(file) : EmbeddedConnectionText(file);
}

std::vector<std::string_view> Words(const std::string& sql) {
  std::vector<std::string_view> words;
  SqlLexer lexer(sql);
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    words.push_back(lexer.TextOf(token));
  }
  return words;
}

/// The table whose rows the statement inserts with the key that the server numbers them by; empty when it
/// does no such thing.
std::string_view TableOfOwnKeys(const std::vector<std::string_view>& words) {
  const bool isInsert = words.size() > 3 && EqualsNoCase(words[0], "insert") &&
                        EqualsNoCase(words[1], "into") && words[3] == "(";
  if (!isInsert || !IsNumberedByServer(words[2])) return {};
  for (std::size_t at = 4; at < words.size() && words[at] != ")"; ++at) {
    if (EqualsNoCase(words[at], "ID")) return words[2];
  }
  return {};
}

/// The parts between the semicolons, without empty ones.
std::vector<std::string> Statements(const std::string& sql) {
  std::vector<std::string> statements;
  SqlLexer lexer(sql);
  for (std::size_t begin = sql.size();;) {
    const SqlToken token = lexer.Next();
    const bool isEnd = token.kind == SqlTokenKind::End;
    if (isEnd || lexer.TextOf(token) == ";") {
      if (begin < token.begin) statements.push_back(sql.substr(begin, token.begin - begin));
      if (isEnd) return statements;
      begin = sql.size();
    } else {
      begin = std::min(begin, token.begin);
    }
  }
}

SqlText AuthorsOwn(std::string_view sql) { return SqlText() + Typed(sql); }

}  // namespace

ScratchDatabase::ScratchDatabase(const ScratchRoute& route, const std::string& file)
    : way_(route.way),
      connector_(ConnectorOf(route.way)),
      connectionText_(TextOf(route, file)),
      own_(connector_->Connect(connectionText_)) {
  if (!IsOnServer()) return;
  EmptyScratchDatabase(*own_);
  CopyRows(file, *own_, RowsTarget::Server, {});
}

SqlText ScratchDatabase::WithOwnKeys(const std::string& sql) {
  const std::string_view table = TableOfOwnKeys(Words(sql));
  if (table.empty()) return AuthorsOwn(sql);
  return SqlText("set identity_insert ") + SqlName(table) + " on " + AuthorsOwn(sql) +
         " set identity_insert " + SqlName(table) + " off";
}

Recordset ScratchDatabase::Run(const std::string& sql) {
  return own_->Open(IsOnServer() ? WithOwnKeys(sql) : AuthorsOwn(sql));
}

void ScratchDatabase::RunAll(const std::string& sql) {
  const auto group = own_->BeginWriteBatch();
  for (const std::string& statement : Statements(sql)) Run(statement);
  group->Finish();
}

}  // namespace koru
