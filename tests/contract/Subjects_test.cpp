#include <cstdlib>
#include <vector>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/sqlserver/ScratchDatabase.h"
#include "tests/contract/DatabaseContract.h"
#include "tests/support/TestDatabase.h"

namespace koru::test {
namespace {

class EmbeddedFile : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override { return SqliteConnector().Connect(file_.ConnectionText()); }

 private:
  TestDatabase file_;
};

class EmbeddedFileThroughOdbc : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override {
    return OdbcConnector().Connect(EmbeddedThroughOdbcText(file_.File()));
  }

 private:
  TestDatabase file_;
};

/// A database that is there for this: its rows go with every test.
class Server : public ContractSubject {
 public:
  explicit Server(std::string connectionText) : connectionText_(std::move(connectionText)) {
    EmptyScratchDatabase(*Connect());
  }
  std::unique_ptr<Database> Connect() override { return OdbcConnector().Connect(connectionText_); }

 private:
  std::string connectionText_;
};

std::vector<ContractCase> Cases() {
  std::vector<ContractCase> cases{
      {"Embedded", [] { return std::make_unique<EmbeddedFile>(); }},
      {"EmbeddedThroughOdbc", [] { return std::make_unique<EmbeddedFileThroughOdbc>(); }}};
  if (const char* text = std::getenv("KORU_SQLSERVER")) {
    cases.push_back({"SqlServer", [text = std::string(text)] { return std::make_unique<Server>(text); }});
  }
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContract, testing::ValuesIn(Cases()),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace koru::test
