#include "adapters/odbc/EmbeddedDialect.h"

#include <sqlite3.h>

#include <charconv>

#include "adapters/sqlite/Dialect.h"
#include "adapters/sqlite/PermissionStatement.h"
#include "adapters/sqlite/PersianFunctions.h"
#include "platform/sql/DatabaseError.h"
#include "platform/sql/SqlLexer.h"

namespace koru {
namespace {

/// Kept translations; the system sends some sixty different statements.
constexpr std::size_t kKeptTranslations = 256;

int OnOpen(sqlite3* connection, char** message, const sqlite3_api_routines* /*unused*/) {
  try {
    RegisterPersianFunctions(connection);
    return SQLITE_OK;
  } catch (const DatabaseError& failure) {
    *message = sqlite3_mprintf("%s", failure.what());
    return SQLITE_ERROR;
  }
}

}  // namespace

void TeachSqlitePersian() {
  // SQLite takes functions of every signature as this one and calls them as what they are.
  const int result = sqlite3_auto_extension(reinterpret_cast<void (*)()>(&OnOpen));
  if (result != SQLITE_OK) throw DatabaseError(sqlite3_errstr(result), result, {});
}

SentStatement EmbeddedDialect::Write(const std::string& statement) {
  const NormalizedStatement normalized = Normalize(statement);
  const Translation& translation = Translated(normalized.text);
  SentStatement sent{translation.text, {}};
  sent.parameters.reserve(translation.literals.size());
  for (const std::size_t literal : translation.literals)
    sent.parameters.push_back(normalized.literals.at(literal));
  return sent;
}

const EmbeddedDialect::Translation& EmbeddedDialect::Translated(const std::string& normalized) {
  const auto kept = translations_.find(normalized);
  if (kept != translations_.end()) return kept->second;
  const std::string numbered = Translate(normalized);
  Translation translation;
  SqlLexer lexer(numbered);
  std::size_t behindLast = 0;
  for (SqlToken token = lexer.Next(); token.kind != SqlTokenKind::End; token = lexer.Next()) {
    if (token.kind != SqlTokenKind::Parameter) continue;
    translation.text.append(numbered, behindLast, token.begin - behindLast) += '?';
    // Parameters are written ?1, ?2, ... from the left, but ODBC drivers count the question marks.
    const SqlToken number = lexer.Next();
    std::size_t literal = 0;
    std::from_chars(numbered.data() + number.begin, numbered.data() + number.end, literal);
    translation.literals.push_back(literal - 1);
    behindLast = number.end;
  }
  translation.text.append(numbered, behindLast);
  if (translations_.size() >= kKeptTranslations) translations_.clear();
  return translations_.emplace(normalized, std::move(translation)).first->second;
}

std::string EmbeddedDialect::SessionSettings() const { return "PRAGMA foreign_keys=OFF"; }

std::optional<OdbcDialect::GroupStatements> EmbeddedDialect::WriteBatchStatements() const {
  return GroupStatements{"BEGIN IMMEDIATE", "COMMIT", "ROLLBACK"};
}

std::optional<SqlText> EmbeddedDialect::ProcedureAsStatement(
    std::string_view procedure, const std::vector<std::int32_t>& parameters) const {
  return PermissionStatement(procedure, parameters);
}

}  // namespace koru
