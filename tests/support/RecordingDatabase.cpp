#include "tests/support/RecordingDatabase.h"

#include "platform/sql/CallText.h"

namespace koru::test {

Recordset RecordingDatabase::Open(const SqlText& statement) {
  log_.push_back(statement.Text());
  return Inner().Open(statement);
}

std::int32_t RecordingDatabase::Call(std::string_view procedure,
                                     const std::vector<std::int32_t>& parameters) {
  log_.push_back(CallText(procedure, parameters));
  return Inner().Call(procedure, parameters);
}

void RecordingDatabase::OpenAll(const std::vector<SqlText>& statements,
                                const std::function<void(std::size_t, const Recordset&)>& take) {
  std::size_t run = 0;
  try {
    Inner().OpenAll(statements, [&](std::size_t i, const Recordset& records) {
      run = i + 1;
      log_.push_back(statements[i].Text());
      take(i, records);
    });
  } catch (...) {
    if (run < statements.size()) log_.push_back(statements[run].Text());
    throw;
  }
}

std::unique_ptr<Database> RecordingConnector::Connect(const std::string& connectionText) {
  connectionTexts_.push_back(connectionText);
  return std::make_unique<RecordingDatabase>(inner_.Connect(connectionText), statements_);
}

}  // namespace koru::test
