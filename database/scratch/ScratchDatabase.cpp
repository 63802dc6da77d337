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

std::vector<std::string_view> Words(const std::string& sql) {
  std::vector<std::string_view> words;
  SqlLexer lexer(sql);
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    words.push_back(lexer.TextOf(token));
  }
  return words;
}

/// The table into which the statement inserts rows with keys that the server would assign; empty for any
/// other statement.
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

/// The callers write their statements themselves, so nothing of them was typed by a user.
SqlText Unchecked(std::string_view sql) { return SqlText() + Typed(sql); }

}  // namespace

ScratchDatabase::ScratchDatabase(const std::string& file, const std::optional<std::string>& server)
    : onServer_(server.has_value()), connectionText_(server.value_or(EmbeddedConnectionText(file))) {
  if (onServer_) {
    connector_ = std::make_unique<OdbcConnector>();
  } else {
    connector_ = std::make_unique<SqliteConnector>();
  }
  own_ = connector_->Connect(connectionText_);
  if (!onServer_) return;
  EmptyScratchDatabase(*own_);
  CopyRows(file, *own_, {});
}

SqlText ScratchDatabase::WithOwnKeys(const std::string& sql) {
  const std::string_view table = TableOfOwnKeys(Words(sql));
  if (table.empty()) return Unchecked(sql);
  return SqlText("set identity_insert ") + SqlName(table) + " on " + Unchecked(sql) +
         " set identity_insert " + SqlName(table) + " off";
}

Recordset ScratchDatabase::Run(const std::string& sql) {
  return own_->Open(onServer_ ? WithOwnKeys(sql) : Unchecked(sql));
}

void ScratchDatabase::RunAll(const std::string& sql) {
  const auto batch = own_->BeginWriteBatch();
  for (const std::string& statement : Statements(sql)) Run(statement);
  batch->Finish();
}

}  // namespace koru
