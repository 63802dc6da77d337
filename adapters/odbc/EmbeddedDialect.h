#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "adapters/odbc/OdbcDialect.h"

namespace koru {

/// An embedded database file behind an ODBC driver for SQLite: statements are translated as the embedded
/// adapter does it, and their literals bound, because the driver spoils characters beyond U+FFFF in a
/// statement's text.
class EmbeddedDialect : public OdbcDialect {
 public:
  [[nodiscard]] SentStatement Write(const std::string& statement) override;
  [[nodiscard]] std::string SessionSettings() const override;
  [[nodiscard]] std::optional<GroupStatements> WriteBatchStatements() const override;
  [[nodiscard]] std::optional<SqlText> ProcedureAsStatement(
      std::string_view procedure, const std::vector<std::int32_t>& parameters) const override;

 private:
  /// A translated statement: which literal (from 0) stands in the place of each `?`.
  struct Translation {
    std::string text;
    std::vector<std::size_t> literals;
  };
  const Translation& Translated(const std::string& normalized);

  std::unordered_map<std::string, Translation> translations_;
};

/// Makes the collation and the functions of the embedded database known to every SQLite connection that this
/// process opens from now on, and so to those that the driver opens: a driver works with the process's one
/// SQLite library.
void TeachSqlitePersian();

}  // namespace koru
