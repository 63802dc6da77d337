#include "tests/support/BatchingDatabase.h"

#include <stdexcept>

namespace koru::test {

Recordset BatchingDatabase::Open(const SqlText& statement) {
  trips_.statements.push_back(1);
  return Inner().Open(statement);
}

std::int32_t BatchingDatabase::Call(std::string_view procedure, const std::vector<std::int32_t>& parameters) {
  trips_.statements.push_back(1);
  return Inner().Call(procedure, parameters);
}

void BatchingDatabase::OpenAll(const std::vector<SqlText>& statements,
                               const std::function<void(std::size_t, const Recordset&)>& take) {
  const bool oneByOne = StatementsPerTrip() == 1;
  if (!oneByOne && statements.size() > StatementsPerTrip()) {
    throw std::logic_error("too many statements for a trip: " + std::to_string(statements.size()));
  }
  trips_.statements.insert(trips_.statements.end(), oneByOne ? statements.size() : 1,
                           oneByOne ? 1 : statements.size());
  Inner().OpenAll(statements, take);
}

std::size_t BatchingDatabase::StatementsPerTrip() const {
  return trips_.statementsPerTrip.value_or(ForwardingDatabase::StatementsPerTrip());
}

std::unique_ptr<Database> BatchingConnector::Connect(const std::string& connectionText) {
  return std::make_unique<BatchingDatabase>(inner_.Connect(connectionText), trips);
}

}  // namespace koru::test
