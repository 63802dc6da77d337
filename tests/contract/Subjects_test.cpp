#include <cstdlib>
#include <memory>
#include <string>

#include "database/trial/TrialDatabase.h"
#include "tests/contract/DatabaseContract.h"
#include "tests/server/StandInServer.h"
#include "tests/support/TestFile.h"

namespace koru::test {
namespace {

using Way = TrialRoute::Way;

class TrialSubject : public ContractSubject {
 public:
  explicit TrialSubject(const TrialRoute& route) : trial_(route, file_.File()) {}
  std::unique_ptr<Database> Connect() override { return trial_.Connector().Connect(trial_.ConnectionText()); }

 private:
  TestFile file_;
  TrialDatabase trial_;
};

class StandInSubject : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override { return trial_.Connect(); }

 private:
  StandInServer server_;
  TrialSubject trial_{{Way::Server, server_.ConnectionText()}};
};

ContractCase OnFile(const std::string& name, Way way) {
  return {name, [way] { return std::make_unique<TrialSubject>(TrialRoute{way, {}}); }};
}

/// The server that KORU_SQLSERVER names, or a stand-in.
std::unique_ptr<ContractSubject> Server() {
  if (const char* named = std::getenv("KORU_SQLSERVER")) {
    return std::make_unique<TrialSubject>(TrialRoute{Way::Server, named});
  }
  return std::make_unique<StandInSubject>();
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContract,
                         testing::Values(OnFile("Embedded", Way::EmbeddedFile),
                                         OnFile("EmbeddedThroughOdbc", Way::ThroughOdbc),
                                         ContractCase{"Server", Server}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace koru::test
