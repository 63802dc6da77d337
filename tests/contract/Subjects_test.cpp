#include <cstdlib>
#include <memory>
#include <string>

#include "database/scratch/ScratchDatabase.h"
#include "tests/contract/DatabaseContract.h"
#include "tests/support/TestFile.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

using Way = ScratchRoute::Way;

class ScratchSubject : public ContractSubject {
 public:
  explicit ScratchSubject(const ScratchRoute& route) : trial_(route, file_.File()) {}
  std::unique_ptr<Database> Connect() override { return trial_.Connector().Connect(trial_.ConnectionText()); }

 private:
  TestFile file_;
  ScratchDatabase trial_;
};

class StandInSubject : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override { return trial_.Connect(); }

 private:
  StandInServer server_;
  ScratchSubject trial_{{Way::Server, server_.ConnectionText()}};
};

ContractCase OnFile(const std::string& name, Way way) {
  return {name, [way] { return std::make_unique<ScratchSubject>(ScratchRoute{way, {}}); }};
}

/// The server that KORU_SQLSERVER names, or a stand-in.
std::unique_ptr<ContractSubject> Server() {
  if (const char* named = std::getenv("KORU_SQLSERVER")) {
    return std::make_unique<ScratchSubject>(ScratchRoute{Way::Server, named});
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
