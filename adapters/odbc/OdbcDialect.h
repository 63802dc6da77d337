#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/NormalizedStatement.h"
#include "platform/sql/SqlText.h"

namespace koru {

/// What reaches the driver for one statement: a text with `?` in the places of its parameters, in their
/// order.
struct SentStatement {
  std::string text;
  std::vector<Literal> parameters;
};

/// How statements in the suite's server's dialect are said to what is behind the driver.
class OdbcDialect {
 public:
  OdbcDialect() = default;
  OdbcDialect(const OdbcDialect&) = delete;
  OdbcDialect& operator=(const OdbcDialect&) = delete;
  virtual ~OdbcDialect() = default;

  /// Throws DatabaseError for a text that is not one whole statement.
  [[nodiscard]] virtual SentStatement Write(const std::string& statement) = 0;

  /// Sent once on every new connection.
  [[nodiscard]] virtual std::string SessionSettings() const = 0;

  /// The statements around those that are to reach the disk together; nothing where the server decides by
  /// itself when it writes to its disk.
  struct GroupStatements {
    std::string begin;
    std::string end;
    std::string giveUp;  ///< after an end that failed
  };
  [[nodiscard]] virtual std::optional<GroupStatements> WriteBatchStatements() const = 0;

  /// Where there are no procedures: a selection that finds rows when the procedure's answer is yes (1), none
  /// for no (0). Throws DatabaseError for a procedure that is not known. Nothing where procedures are called
  /// as such.
  [[nodiscard]] virtual std::optional<SqlText> ProcedureAsStatement(
      std::string_view procedure, const std::vector<std::int32_t>& parameters) const = 0;
};

}  // namespace koru
