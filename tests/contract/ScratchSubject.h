#pragma once

#include <memory>
#include <optional>
#include <string>

#include "database/scratch/ScratchDatabase.h"
#include "tests/contract/DatabaseContract.h"
#include "tests/support/TestFile.h"

namespace koru::test {

/// An embedded file, or the scratch database of the server that a connection text names.
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

}  // namespace koru::test
