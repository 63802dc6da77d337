#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "database/scratch/ScratchDatabase.h"
#include "tests/contract/DatabaseContract.h"
#include "tests/support/TestFile.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

class ScratchSubject : public ContractSubject {
 public:
  explicit ScratchSubject(const std::optional<std::string>& server = {}) : database_(file_.File(), server) {}
  std::unique_ptr<Database> Connect() override {
    return database_.Connector().Connect(database_.ConnectionText());
  }

 private:
  TestFile file_;
  ScratchDatabase database_;
};

class StandInSubject : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override { return database_.Connect(); }

 private:
  StandInServer server_;
  ScratchSubject database_{server_.ConnectionText()};
};

std::unique_ptr<ContractSubject> Embedded() { return std::make_unique<ScratchSubject>(); }

/// The server that KORU_SQLSERVER names, or a stand-in.
std::unique_ptr<ContractSubject> Server() {
  if (const char* named = std::getenv("KORU_SQLSERVER")) return std::make_unique<ScratchSubject>(named);
  return std::make_unique<StandInSubject>();
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContract,
                         testing::Values(ContractCase{"Embedded", Embedded}, ContractCase{"Server", Server}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace koru::test
