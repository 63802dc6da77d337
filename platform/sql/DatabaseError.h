#pragma once

#include <stdexcept>
#include <string>

namespace koru {

/// The code of a DatabaseError for a malformed statement; the same as the suite's server's.
inline constexpr int kBrokenStatement = 105;

/// What a user can do about a failure depends on its cause.
enum class DatabaseCause {
  Other,
  DiskFull,     ///< no room for what was written
  Locked,       ///< another program is writing, and did not finish in time
  ReadOnly,     ///< the database may not be written to
  InputOutput,  ///< the disk failed
  Away          ///< the server cannot be reached, or the connection is lost
};

/// The database refused a statement or could not be reached. what() is ServerText().
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(const std::string& serverText, int code, std::string statement,
                DatabaseCause cause = DatabaseCause::Other)
      : std::runtime_error(serverText), code_(code), cause_(cause), statement_(std::move(statement)) {}

  /// The server's message; never contains a password.
  [[nodiscard]] std::string ServerText() const { return what(); }
  /// The error number of the server or driver; 0 if none.
  [[nodiscard]] int Code() const { return code_; }
  [[nodiscard]] DatabaseCause Cause() const { return cause_; }
  /// The failed statement; empty when no statement was sent (a connection failed to open).
  [[nodiscard]] const std::string& Statement() const { return statement_; }

 private:
  int code_;
  DatabaseCause cause_;
  std::string statement_;
};

/// The end of a write batch failed so late that nobody knows whether the batch is stored.
class UncertainWrite : public DatabaseError {
 public:
  using DatabaseError::DatabaseError;
};

/// The end of a write batch was sent, and no answer came: either all of the batch is stored, or nothing. The
/// database, asked again, knows.
class UnansweredWrite : public UncertainWrite {
 public:
  using UncertainWrite::UncertainWrite;
};

}  // namespace koru
