#pragma once

#include <string>

#include "tools/tds-stand-in/StandInDatabase.h"
#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// A stand-in for the suite's server on a port of this machine, until destruction. Its database is empty at
/// first, and all its clients share it. README.md says what it cannot prove.
class StandInServer {
 public:
  StandInServer();

  [[nodiscard]] std::string ConnectionText() const { return server_.ConnectionText(); }

 private:
  StandInDatabase database_;
  TdsServer server_;  // last: its threads use the database
};

}  // namespace koru::test
