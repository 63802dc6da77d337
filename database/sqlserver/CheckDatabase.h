#pragma once

#include <string>
#include <vector>

#include "platform/sql/Database.h"

namespace koru {

/// One thing that was looked at: what it is, whether it is as the component needs it, and a sentence for the
/// person who looks after the database. The sentence of a failure ends with the server's own words.
struct CheckedThing {
  std::string what;
  bool ok = false;
  std::string sentence;
};

/// Looks whether the component could work on a database: driver, server, sign-in and database, each table
/// with its columns, the right to write where the component writes, and the permission procedure. Nothing is
/// changed: what would write is asked for no row at all. Whatever fails becomes a line of the answer; the
/// look goes on where that makes sense. All is well when every line is.
[[nodiscard]] std::vector<CheckedThing> CheckDatabase(DatabaseConnector& databases,
                                                      const std::string& connectionText);

}  // namespace koru
