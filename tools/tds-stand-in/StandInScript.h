#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "tools/tds-stand-in/ServerBatch.h"

namespace koru::test {

/// What the statements of a batch can ask for beside the tables.
struct ScriptValues {
  std::string database;                  ///< db_name()
  int openTransactions = 0;              ///< @@trancount; xact_state() follows from it
  int error = 0;                         ///< @@error: the number of the statement before
  std::optional<std::int64_t> identity;  ///< scope_identity()
  std::map<std::string, std::optional<std::int64_t>> variables;  ///< with their @
};

/// The statement with the functions and variables of ScriptValues replaced by their values. Throws the
/// server's refusal of a variable that is not declared.
[[nodiscard]] ServerBatch WithValues(const ServerBatch& statement, const ScriptValues& values);

/// A call of sp_getapplock: `exec @result=sp_getapplock @Resource=..., @LockMode=..., ...`.
struct LockCall {
  std::string result;  ///< the variable, with its @
  std::string resource;
  std::int64_t timeout = -1;  ///< in milliseconds
};
/// Throws NotKnownHere for a lock that is not exclusive or whose owner is not the transaction.
[[nodiscard]] LockCall ReadLockCall(const ServerBatch& statement);

/// The place of the statement that an `if` runs; Size() when there is none that is known here.
[[nodiscard]] std::size_t ConditionEnd(const ServerBatch& statement);

}  // namespace koru::test
