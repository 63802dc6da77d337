#pragma once

#include <string>

#include "platform/sql/DatabaseError.h"

namespace koru {

/// A connection through ODBC could not be opened. what() is a sentence for the user, followed by the driver's
/// own words.
class OdbcConnectError : public DatabaseError {
 public:
  /// The step that failed; those before it succeeded.
  enum class Step {
    Text,     ///< the connection text itself
    Driver,   ///< no such driver on this machine
    Server,   ///< not reachable, or does not answer
    SignIn,   ///< user name or password refused
    Database  ///< does not exist, or is forbidden to this user
  };

  OdbcConnectError(Step step, const std::string& sentence, int code = 0)
      : DatabaseError(sentence, code, {}, step == Step::Server ? DatabaseCause::Away : DatabaseCause::Other),
        step_(step) {}
  [[nodiscard]] Step Where() const { return step_; }

 private:
  Step step_;
};

}  // namespace koru
