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

/// The round trips to a database.
struct Trips {
  /// How many statements the database takes in a trip; nothing: as many as the database itself says.
  std::optional<std::size_t> statementsPerTrip;
  /// The statements and procedure calls of each trip since the list was last cleared.
  std::vector<std::size_t> statements;
};

/// Passes everything to another database and counts the round trips as if that were a server: OpenAll takes
/// one, and so does each other statement. `trips` must outlive it.
class BatchingDatabase : public ForwardingDatabase {
 public:
  BatchingDatabase(std::unique_ptr<Database> inner, Trips& trips)
      : ForwardingDatabase(std::move(inner)), trips_(trips) {}

  Recordset Open(const SqlText& statement) override;
  std::int32_t Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) override;
  /// Throws std::logic_error when there are more statements than fit into a trip.
  void OpenAll(const std::vector<SqlText>& statements,
               const std::function<void(std::size_t, const Recordset&)>& take) override;
  [[nodiscard]] std::size_t StatementsPerTrip() const override;

 private:
  Trips& trips_;
};

/// Connects through another connector; the trips of all connections are counted together.
class BatchingConnector : public DatabaseConnector {
 public:
  explicit BatchingConnector(DatabaseConnector& inner) : inner_(inner) {}

  [[nodiscard]] std::unique_ptr<Database> Connect(const std::string& connectionText) override;

  Trips trips;

 private:
  DatabaseConnector& inner_;
};

}  // namespace koru::test
