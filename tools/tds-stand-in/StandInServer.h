#pragma once

#include <string>

#include "tools/tds-stand-in/StandInDatabase.h"
#include "tools/tds-stand-in/TdsServer.h"

namespace koru::test {

/// A stand-in for the suite's server: what speaks to it through ODBC finds a database that is empty at first,
/// its own, and goes with it, and that all its clients share.
class StandInServer {
 public:
  StandInServer();

  [[nodiscard]] std::string ConnectionText() const { return server_.ConnectionText(); }

 private:
  StandInDatabase database_;
  TdsServer server_;  // the last: its threads work with the database
};

}  // namespace koru::test
