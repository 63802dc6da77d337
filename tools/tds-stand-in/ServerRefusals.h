#pragma once

#include <string>

#include "platform/sql/DatabaseError.h"

namespace koru::test {

/// A refusal of the suite's server.
class ServerRefusal : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// The refusal with that number, in the server's words about `name`: a table, a column, a word.
[[nodiscard]] ServerRefusal Refusal(int number, const std::string& name, const std::string& batch);

/// For what the stand-in does not implement, whether the server would accept it or not.
[[nodiscard]] ServerRefusal NotKnownHere(const std::string& what, const std::string& batch);

/// The name of a column's constraint, from which AsServer knows the server's refusal of a value.
[[nodiscard]] std::string RuleName(int number, const std::string& column);

/// A failure of the embedded engine in the number and words of the server where they are known; else in the
/// engine's own words.
[[nodiscard]] ServerRefusal AsServer(const DatabaseError& failure);

}  // namespace koru::test
