#pragma once

#include <string>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// One checked object: its name, whether it meets the component's needs, and a sentence for the
/// administrator. The sentence of a failure ends with the server's message.
struct CheckedThing {
  std::string what;
  bool ok = false;
  std::string sentence;
};

/// Checks whether the component can work on a database: driver, server, sign-in and database, each table with
/// its columns, the permission to write where the component writes, the permission procedure, and, where all
/// that is in order, how long a full calculation takes. Changes nothing: the writing statements affect no
/// row. Each failure becomes an entry of the result, and the check continues where possible. The database is
/// usable if every entry is ok.
[[nodiscard]] std::vector<CheckedThing> CheckDatabase(DatabaseConnector& databases,
                                                      const std::string& connectionText);

}  // namespace koru
