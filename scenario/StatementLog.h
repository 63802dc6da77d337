#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// Connects through another connector and records every statement that is sent over any of its connections,
/// in order; a procedure call as `{? = CALL name( 1, 2 ) }`. It can make a statement fail, as a server or a
/// network would.
class StatementLog : public DatabaseConnector {
 public:
  /// `inner` must outlive the log, and the log every connection made through it.
  explicit StatementLog(DatabaseConnector& inner) : inner_(inner) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

  /// The statements since the last Forget, the failed ones included.
  [[nodiscard]] const std::vector<std::string>& Statements() const { return statements_; }
  void Forget() { statements_.clear(); }

  /// Makes the `number`-th statement from now (1: the next) fail with that server text; it is not sent.
  void FailStatement(int number, std::string serverText);
  /// Whether FailStatement has not taken effect yet.
  [[nodiscard]] bool FailureIsPending() const { return untilFailure_ > 0; }

 private:
  class Connection;
  void Note(const std::string& statement);

  DatabaseConnector& inner_;
  std::vector<std::string> statements_;
  std::string failureText_;
  int untilFailure_ = 0;  ///< 0: none is to fail
};

}  // namespace koru
