#pragma once

#include <string>

#include "platform/sql/DatabaseError.h"

namespace koru::test {

/// What the suite's server answers instead of doing it.
class ServerRefusal : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// One in the server's number and words. `name` is what they are about: a table, a column, a word.
[[nodiscard]] ServerRefusal Refusal(int number, const std::string& name, const std::string& batch);

/// What the stand-in does not do, be it right or not.
[[nodiscard]] ServerRefusal NotKnownHere(const std::string& what, const std::string& batch);

/// The name of a rule that a column must hold, so that the engine, when it refuses a value, says which of the
/// server's refusals that is.
[[nodiscard]] std::string RuleName(int number, const std::string& column);

/// A failure of the embedded engine in the number and words of the server where it is obvious which they are;
/// else in its own words.
[[nodiscard]] ServerRefusal AsServer(const DatabaseError& failure);

}  // namespace koru::test
