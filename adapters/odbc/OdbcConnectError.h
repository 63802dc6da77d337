#pragma once

#include <string>

#include "platform/sql/DatabaseError.h"

namespace koru {

/// A connection through ODBC could not be opened. what() is a sentence for a person, with the driver's own
/// words behind it.
class OdbcConnectError : public DatabaseError {
 public:
  /// What was in the way; everything before it was found in order.
  enum class Step {
    Text,     ///< the connection text itself
    Driver,   ///< no such driver on this machine
    Server,   ///< not there, or silent
    SignIn,   ///< user name or password refused
    Database  ///< no such database there, or not for this user
  };

  OdbcConnectError(Step step, const std::string& sentence, int code = 0)
      : DatabaseError(sentence, code, {}), step_(step) {}
  [[nodiscard]] Step Where() const { return step_; }

 private:
  Step step_;
};

}  // namespace koru
