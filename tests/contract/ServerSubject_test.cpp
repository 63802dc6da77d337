#include <cstdlib>

#include "tests/contract/ScratchSubject.h"
#include "tools/tds-stand-in/StandInServer.h"

namespace koru::test {
namespace {

class StandInSubject : public ContractSubject {
 public:
  std::unique_ptr<Database> Connect() override { return database_.Connect(); }

 private:
  StandInServer server_;
  ScratchSubject database_{server_.ConnectionText()};
};

/// The server that KORU_SQLSERVER names, or a stand-in.
std::unique_ptr<ContractSubject> Server() {
  if (const char* named = std::getenv("KORU_SQLSERVER")) return std::make_unique<ScratchSubject>(named);
  return std::make_unique<StandInSubject>();
}

INSTANTIATE_TEST_SUITE_P(Server, DatabaseContract, testing::Values(ContractCase{"Server", Server}),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace koru::test
