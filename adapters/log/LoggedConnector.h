#pragma once

#include <memory>
#include <string>
#include <utility>

#include "adapters/log/LogFile.h"
#include "platform/sql/Database.h"

namespace koru {

/// Connects through another connector and writes into a log what passes: connections, statements, procedure
/// calls, write batches, read snapshots; each with its beginning, its duration and its outcome (rows, or the
/// error's code and text). Failures are passed on unchanged. Passwords are never written; typed texts where
/// the log's settings say so. Without a log, connections are the other connector's own. The connector must
/// outlive its connections.
class LoggedConnector : public DatabaseConnector {
 public:
  LoggedConnector(std::unique_ptr<DatabaseConnector> inner, LogSettings settings)
      : inner_(std::move(inner)), log_(std::move(settings)) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

 private:
  std::unique_ptr<DatabaseConnector> inner_;
  LogFile log_;
};

}  // namespace koru
