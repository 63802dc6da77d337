#pragma once

#include <stdexcept>
#include <string>

namespace koru {

/// The code of a DatabaseError for a statement that is no statement, the same that the suite's server gives.
inline constexpr int kBrokenStatement = 105;

/// The database refused a statement or could not be reached. what() is ServerText().
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(const std::string& serverText, int code, std::string statement)
      : std::runtime_error(serverText), code_(code), statement_(std::move(statement)) {}

  /// The server's own words; never a password.
  [[nodiscard]] std::string ServerText() const { return what(); }
  /// The server's or driver's own number; 0 where it gave none.
  [[nodiscard]] int Code() const { return code_; }
  /// The statement that failed; empty when the failure came before any statement (opening a connection).
  [[nodiscard]] const std::string& Statement() const { return statement_; }

 private:
  int code_;
  std::string statement_;
};

}  // namespace koru
