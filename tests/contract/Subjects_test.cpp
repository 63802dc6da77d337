#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "adapters/odbc/OdbcConnector.h"
#include "adapters/sqlite/SqliteConnector.h"
#include "database/sqlserver/ScratchDatabase.h"
#include "tests/contract/DatabaseContract.h"
#include "tests/server/StandInServer.h"
#include "tests/support/TestFile.h"

namespace koru::test {
namespace {

class EmbeddedFile : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override { return SqliteConnector().Connect(file_.ConnectionText()); }

 private:
  TestFile file_;
};

class EmbeddedFileThroughOdbc : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override {
    return OdbcConnector().Connect(EmbeddedThroughOdbcText(file_.File()));
  }

 private:
  TestFile file_;
};

/// The scratch database of a server, whose rows go with every test: that which KORU_SQLSERVER names, or that
/// of a stand-in.
class Server : public ContractSubject {
 public:
  Server() {
    if (const char* named = std::getenv("KORU_SQLSERVER")) {
      connectionText_ = named;
    } else {
      connectionText_ = standIn_.emplace().ConnectionText();
    }
    EmptyScratchDatabase(*OdbcConnector().Connect(connectionText_));
  }
  std::unique_ptr<Database> Connect() override { return OdbcConnector().Connect(connectionText_); }

 private:
  std::optional<StandInServer> standIn_;
  std::string connectionText_;
};

template <class Subject>
std::unique_ptr<ContractSubject> Made() {
  return std::make_unique<Subject>();
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContract,
                         testing::Values(ContractCase{"Embedded", Made<EmbeddedFile>},
                                         ContractCase{"EmbeddedThroughOdbc", Made<EmbeddedFileThroughOdbc>},
                                         ContractCase{"Server", Made<Server>}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace koru::test
