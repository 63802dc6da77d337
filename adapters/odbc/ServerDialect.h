#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/OdbcDialect.h"

namespace koru {

/// The suite's server: statements go as they are, but for the literals that its code page would spoil.
class ServerDialect : public OdbcDialect {
 public:
  /// Each text literal with a character beyond ASCII is written as a national one, `N'...'`: any other is
  /// first turned into the code page of the database, where most of them have no Persian yeh and some no
  /// Persian letter at all.
  [[nodiscard]] SentStatement Write(const std::string& statement) override;

  /// Days written yyyy-mm-dd are read so whatever the language of the login; "..." is a name, as the check of
  /// typed text takes it to be; and the settings under which the server lets indexed computed columns be
  /// written to.
  [[nodiscard]] std::string SessionSettings() const override;

  [[nodiscard]] std::optional<GroupStatements> WriteBatchStatements() const override;
  [[nodiscard]] std::optional<SqlText> ProcedureAsStatement(
      std::string_view procedure, const std::vector<std::int32_t>& parameters) const override;
};

}  // namespace koru
