#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sql/ForwardingDatabase.h"

namespace koru::test {

/// The texts of statements in the order in which they were sent, whether they failed or not. A procedure call
/// is written
/// "{? = CALL name( 1, 806) }".
using StatementLog = std::vector<std::string>;

/// Passes everything to another database and writes it down. `log` must outlive it.
class RecordingDatabase : public ForwardingDatabase {
 public:
  RecordingDatabase(std::unique_ptr<Database> inner, StatementLog& log)
      : ForwardingDatabase(std::move(inner)), log_(log) {}

  Recordset Open(const SqlText& statement) override;
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override;

 private:
  StatementLog& log_;
};

/// Connects through another connector and records what all its connections send into one log. Both `inner`
/// and the recording connector must outlive the connections.
class RecordingConnector : public DatabaseConnector {
 public:
  explicit RecordingConnector(DatabaseConnector& inner) : inner_(inner) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

  [[nodiscard]] const StatementLog& Statements() const { return statements_; }
  /// The connection texts, in the order in which they were asked for.
  [[nodiscard]] const std::vector<std::string>& ConnectionTexts() const { return connectionTexts_; }
  void ForgetStatements() { statements_.clear(); }

 private:
  DatabaseConnector& inner_;
  StatementLog statements_;
  std::vector<std::string> connectionTexts_;
};

}  // namespace koru::test
